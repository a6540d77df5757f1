#include "main/OpeningDesktop.h"

#include "platform/linux/CommandLineEvents.h"
#include "platform/linux/GioWorkspace.h"

namespace tabulon {
namespace {

class LinuxDesktop : public cli::OpeningDesktop {
public:
    Workspace& workspace() override { return workspace_; }
    EventSender& events() override { return events_; }
    AutomationPermission& permission() override { return permission_; }
    Result<void> startPrograms() override { return launcher_.startPending(); }

private:
    BrowserLauncher launcher_{nullptr};
    GioWorkspace workspace_{launcher_};
    CommandLineEvents events_{launcher_};
    CommandLinePermission permission_;
};

} // namespace

std::unique_ptr<cli::OpeningDesktop> makeOpeningDesktop() {
    return std::make_unique<LinuxDesktop>();
}

} // namespace tabulon
