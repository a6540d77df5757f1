// The folders that the desktop specifies for a program's files and for the user's documents. All paths are
// absolute and in the file system's encoding.
#pragma once

#include "platform/FileStore.h"

#include <string>

namespace tabulon {

/// Returns the user's home folder: `$HOME` if it is absolute, else that of the user database, else "/".
std::string homeFolder();

/// Returns the folder for the settings of all programs: `$XDG_CONFIG_HOME`, or `~/.config` where that is not
/// absolute.
std::string configFolder();

/// Returns the folder for this program's settings: `tabulon` in `configFolder()`.
std::string settingsFolder();

/// Returns the folder for this program's state: `$XDG_STATE_HOME/tabulon`, or `~/.local/state/tabulon`.
std::string stateFolder();

/// Returns the folder for sockets and other files of this session: `$XDG_RUNTIME_DIR`, or `/run/user/` with
/// the number of the user where that is not absolute.
std::string runtimeFolder();

/// Returns the user's folder for documents from the desktop's list of folders (`user-dirs.dirs`), else
/// `~/Documents`. It need not exist.
std::string documentsFolder(FileStore& files);

/// Returns the user's folder for downloads from the same list, else `~/Downloads`. It need not exist.
std::string downloadsFolder(FileStore& files);

} // namespace tabulon
