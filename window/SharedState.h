// What the document windows of one run of the program have in common. The application owns it.
#pragma once

#include "model/Finder.h"
#include "window/NodeRecords.h"

#include <cstddef>
#include <string>

namespace tabulon {

/// The commands of the application that document windows call.
class SharedCommands {
public:
    virtual ~SharedCommands() = default;
    /// Collects the links of an HTML text into a new document.
    virtual void grabAllHTML(const std::string& html) = 0;
    /// Shows or hides the marks of links in every window.
    virtual void showMarks(bool shown) = 0;
};

struct SharedState {
    /// `commands` must outlive this object.
    explicit SharedState(SharedCommands& commands) : application(commands) {}

    SharedCommands& application;
    NodeRecords records;
    FindPhases findPhases;
    /// How many links the last removal by status took.
    std::size_t removedLinks = 0;
};

} // namespace tabulon
