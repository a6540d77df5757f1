// Where the desktop wants a program's files, and where the user keeps documents.
#pragma once

#include "platform/FileStore.h"

#include <string>

namespace tabulon {

/// The user's home folder. In the file system's encoding, like all paths.
std::string homeFolder();

/// `$XDG_CONFIG_HOME`, else `~/.config`: the settings of all programs.
std::string configFolder();

/// `$XDG_CONFIG_HOME/tabulon` (else `~/.config/tabulon`): the settings.
std::string settingsFolder();

/// `$XDG_STATE_HOME/tabulon` (else `~/.local/state/tabulon`): what the program remembers by itself.
std::string stateFolder();

/// The user's folder for documents by the desktop's list of such folders (`user-dirs.dirs`), else
/// `~/Documents`. It need not be there.
std::string documentsFolder(FileStore& files);

/// The same for what is downloaded, else `~/Downloads`.
std::string downloadsFolder(FileStore& files);

} // namespace tabulon
