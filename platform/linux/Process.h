// What a program arranges for itself before it does anything else.
#pragma once

#include <string_view>

namespace tabulon {

/// Keeps the process from being ended, or misled, by where its output goes. A reader that has gone and a
/// limit on the size of files become errors of the write, for this process alone: programs that it starts
/// have the system's own behaviour. Standard streams that are closed become ones that fail, so that no
/// document is opened under their numbers.
void prepareProcess();

/// Writes to standard error what fits there now. A line that cannot be written is dropped: it may be a closed
/// stream, a full disk, or a pipe whose reader has gone or does not read.
void writeStandardError(std::string_view text);

} // namespace tabulon
