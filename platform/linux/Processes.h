// The processes of this user, as the kernel lists them.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tabulon {

/// Returns the file name of the program that a process runs, without folders, or an empty text if the process
/// is gone or belongs to another user.
std::string programOfProcess(unsigned pid);

/// Returns whether a process of this user runs one of these programs. Linear in the number of processes.
bool isProgramRunning(std::span<const std::string_view> programs);

} // namespace tabulon
