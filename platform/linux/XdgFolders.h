// Where the desktop wants a program's files.
#pragma once

#include <QString>

namespace tabulon {

/// `$XDG_CONFIG_HOME/tabulon` (else `~/.config/tabulon`): the settings.
QString settingsFolder();

/// `$XDG_STATE_HOME/tabulon` (else `~/.local/state/tabulon`): what the program remembers by itself.
QString stateFolder();

} // namespace tabulon
