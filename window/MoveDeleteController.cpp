#include "window/MoveDeleteController.h"

#include "base/Settings.h"
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
    setValue(defaults, settings::kDuplicateLinks, duplicateLinks);
    setValue(defaults, settings::kBrokenLinks, brokenLinks);
    setValue(defaults, settings::kUnknownLinks, unknownLinks);
    setValue(defaults, settings::kMoveLinks, moveLinks);
}

} // namespace tabulon
