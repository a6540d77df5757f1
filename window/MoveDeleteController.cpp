#include "window/MoveDeleteController.h"

namespace tabulon {

void MoveDeleteController::viewDidLoad() {
    const UserDefaults& defaults = services_.defaults;
    duplicateLinks = defaults.boolForKey("DuplicateLinks");
    brokenLinks = defaults.boolForKey("BrokenLinks");
    unknownLinks = defaults.boolForKey("UnknownLinks");
    moveLinks = defaults.boolForKey("MoveLinks");
}

std::string MoveDeleteController::okTitle() const {
    return services_.texts.text(moveLinks ? "Move" : "Delete");
}

void MoveDeleteController::done() {
    UserDefaults& defaults = services_.defaults;
    defaults.setBoolForKey("DuplicateLinks", duplicateLinks);
    defaults.setBoolForKey("BrokenLinks", brokenLinks);
    defaults.setBoolForKey("UnknownLinks", unknownLinks);
    defaults.setBoolForKey("MoveLinks", moveLinks);
}

} // namespace tabulon
