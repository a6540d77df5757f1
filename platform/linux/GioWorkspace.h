// The applications that GIO finds in the desktop entries.
#pragma once

#include "platform/Workspace.h"

namespace tabulon {

/// See platform/Workspace.h for the contracts.
class GioWorkspace : public Workspace {
public:
    /// Returns the default application for the scheme "http", or `nullopt`. The name is UTF-8; the icon is
    /// the name of a themed icon or the path of a file, or empty.
    std::optional<Application> defaultBrowser() override;
};

} // namespace tabulon
