// The commands of the tool. Each has a source file of its own with its options and its action; the list of
// all is in CommandLine.cpp.
#pragma once

#include "cli/Session.h"

#include <functional>

namespace CLI {
class App;
}

namespace tabulon::cli {

/// Performs a command with the options of the command line. Fails with a sentence for the user.
using Action = std::function<Result<void>(const Session&)>;

// Each function adds a command with its options to `tool`. When `tool` parses arguments that name the
// command, it assigns the command to `action`, which must outlive `tool` and may be called only while `tool`
// exists.

void addCompare(CLI::App& tool, Action& action);
void addDuplicates(CLI::App& tool, Action& action);
void addExport(CLI::App& tool, Action& action);
void addFind(CLI::App& tool, Action& action);
void addImport(CLI::App& tool, Action& action);
void addLink(CLI::App& tool, Action& action);
void addMake(CLI::App& tool, Action& action);
void addRemove(CLI::App& tool, Action& action);
void addShow(CLI::App& tool, Action& action);
void addSort(CLI::App& tool, Action& action);
void addVersions(CLI::App& tool, Action& action);

} // namespace tabulon::cli
