// What the document windows of one process share. The application owns it.
#pragma once

#include "model/Finder.h"
#include "window/NodeRecords.h"

#include <cstddef>
#include <string>

namespace tabulon {

/// The operations of the application that document windows call.
class SharedCommands {
public:
    virtual ~SharedCommands() = default;
    /// Collects the links of an HTML text into a new document.
    virtual void grabAllHTML(const std::string& html) = 0;
    /// Shows or hides the marks of links in every window.
    virtual void showMarks(bool shown) = 0;
};

/// The state that document windows share.
struct SharedState {
    /// Requires: `commands` outlives this object.
    explicit SharedState(SharedCommands& commands) : application(commands) {}

    /// The application's operations.
    SharedCommands& application;
    /// The nodes that were copied, are dragged, or were received from another program.
    NodeRecords records;
    /// Where the last search of any window has stopped within a node.
    FindPhases findPhases;
    /// The number of links that the last removal by status has removed.
    std::size_t removedLinks = 0;
};

} // namespace tabulon
