// The applications as GIO finds them in the desktop entries.
#pragma once

#include "platform/Workspace.h"

namespace tabulon {

class GioWorkspace : public Workspace {
public:
    std::optional<Application> defaultBrowser() override;
};

} // namespace tabulon
