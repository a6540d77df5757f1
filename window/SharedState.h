// What the document windows of one run of the program have in common. The application owns it.
#pragma once

#include "window/NodeRecords.h"

#include <functional>
#include <string>

namespace tabulon {

struct SharedState {
    NodeRecords records;
    /// The application's link scanner: collects the links of an HTML text into a new document.
    std::function<void(const std::string& html)> grabAllHTML;
};

} // namespace tabulon
