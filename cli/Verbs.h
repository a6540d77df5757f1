// The commands of the tool. Each has a source file of its own with its options and its action; the list of
// all is in CommandLine.cpp.
#pragma once

#include "cli/Verb.h"

namespace tabulon::cli {

// Each function adds the command of its name, with its options, to the tool. The parser owns the command.
// Requires: the tool has no command of that name.

void addCompare(Tool tool);
void addDuplicates(Tool tool);
void addExport(Tool tool);
void addFind(Tool tool);
void addImport(Tool tool);
void addLink(Tool tool);
void addMake(Tool tool);
void addOpen(Tool tool);
void addRemove(Tool tool);
void addShow(Tool tool);
void addSort(Tool tool);
void addVersions(Tool tool);

} // namespace tabulon::cli
