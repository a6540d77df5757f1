#include "window/MoveDeleteController.h"

#include "model/StatusRemoval.h"

namespace tabulon {

void MoveDeleteController::viewDidLoad() {
    const RemovalOptions options = removalOptions(services_.defaults);
    duplicateLinks = options.duplicates;
    brokenLinks = options.broken;
    unknownLinks = options.unknown;
    moveLinks = options.move;
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
