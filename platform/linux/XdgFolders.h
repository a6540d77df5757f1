// Where the desktop wants a program's files, and where the user keeps documents.
#pragma once

#include "platform/FileStore.h"

#include <string>

namespace tabulon {

/// `$XDG_CONFIG_HOME/tabulon` (else `~/.config/tabulon`): the settings. In the file system's encoding, like
/// all paths.
std::string settingsFolder();

/// `$XDG_STATE_HOME/tabulon` (else `~/.local/state/tabulon`): what the program remembers by itself.
std::string stateFolder();

/// The user's folder for documents by the desktop's list of such folders (`user-dirs.dirs`), else
/// `~/Documents`. It need not be there.
std::string documentsFolder(FileStore& files);

} // namespace tabulon
