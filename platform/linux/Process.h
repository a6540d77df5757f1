// The preparation of the process, and output that cannot end or block it.
#pragma once

#include <string_view>

namespace tabulon {

/// Makes the process robust against the state of its standard streams. A write to a pipe without a reader, or
/// beyond the limit on file sizes, fails instead of ending the process; programs that it starts have the
/// system's default. Standard streams that are closed are opened such that they fail, so that no document
/// gets their numbers. To be called first.
void prepareProcess();

/// Writes to standard error as much of `text` as fits there without waiting. The rest is dropped where the
/// stream is closed, the disk is full, or a pipe has no reader or a full buffer.
void writeStandardError(std::string_view text);

} // namespace tabulon
