// Every measurement of the library, one function a row. Each checks its answer and ends the program when it
// is wrong.
#pragma once

#include "bench/Sample.h"
#include "bench/Table.h"

#include <cstddef>
#include <string>
#include <vector>

namespace tabulon::bench {

// ArchiveRows.cpp
Row openRow(const Sample& sample, const Effort& effort);
Row saveRow(const Sample& sample, const Effort& effort);

// HtmlRows.cpp
Row tagScanRow(const Sample& sample, const Effort& effort);
Row htmlExportRow(const Sample& sample, const Effort& effort);

// JsonRows.cpp
Row chromiumImportRow(const Sample& sample, const Effort& effort);

// XbelRows.cpp
Row xbelImportRow(const Sample& sample, const Effort& effort);
Row xbelExportRow(const Sample& sample, const Effort& effort);

// TextRows.cpp
Row textScanRow(const Sample& sample, const Effort& effort);

// FindingRows.cpp
Row duplicatesRow(const Sample& sample, const Effort& effort);
Row sortRow(const Sample& sample, const Effort& effort);
Row findRow(const Sample& sample, const Effort& effort);
/// The same in a tree of its own with a million nodes; in the sample's where nothing is judged.
Row findInLargeDocumentRow(const Sample& sample, const Effort& effort);
/// Processor seconds of sorting copies of the tree by name, of the fastest run.
double secondsOfSorting(const Bookmark& tree, int runs);
/// The same of looking for a text that is not there.
double secondsOfFinding(const Bookmark& tree, int runs);

// MemoryRow.cpp
Row memoryRow(const Sample& sample, const Effort& effort);
/// What a child process of memoryRow does: opens the document in `path` and prints how much memory that took.
int printMemoryOfDocument(const char* path);

// GrowthRows.cpp
/// The works on trees with each number of links in `sizes`, ascending and at least two, per node.
std::vector<Row> growthRows(const std::vector<std::size_t>& sizes, const Effort& effort);

} // namespace tabulon::bench
