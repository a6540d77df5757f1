// The desktop of the command-line tool. A build has one of two sources: with the desktop's services, or
// without any.
#pragma once

#include "cli/CommandLine.h"

#include <memory>

namespace tabulon {

/// Returns the desktop of this session, or nullptr in a build without the desktop's services.
std::unique_ptr<cli::OpeningDesktop> makeOpeningDesktop();

} // namespace tabulon
