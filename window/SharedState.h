// What the document windows of one run of the program have in common. The application owns it.
#pragma once

#include "model/Finder.h"
#include "window/NodeRecords.h"

#include <cstddef>
#include <functional>
#include <string>

namespace tabulon {

struct SharedState {
    NodeRecords records;
    /// The application's link scanner: collects the links of an HTML text into a new document.
    std::function<void(const std::string& html)> grabAllHTML;
    FindPhases findPhases;
    /// How many links the last removal by status took.
    std::size_t removedLinks = 0;
    /// The application shows or hides the marks of links in every window.
    std::function<void(bool shown)> showMarks;
};

} // namespace tabulon
