// The command-line tool without the services of a desktop.
#include "main/OpeningDesktop.h"

namespace tabulon {

std::unique_ptr<cli::OpeningDesktop> makeOpeningDesktop() {
    return nullptr;
}

} // namespace tabulon
