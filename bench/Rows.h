// The measurements of the library, one function for each row. Each checks its result and ends the program
// when it is wrong.
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
/// Measures the same in a tree of about a million nodes, or in that of `sample` where targets are not judged.
Row findInLargeDocumentRow(const Sample& sample, const Effort& effort);
/// Returns the processor time in seconds of sorting a copy of the tree by name, of the fastest run.
double secondsOfSorting(const Bookmark& tree, int runs);
/// Returns the processor time in seconds of finding a text that does not occur, of the fastest run.
double secondsOfFinding(const Bookmark& tree, int runs);

// EditRows.cpp
/// Measures single edits in a window with about a million nodes, or with those of `sample` where nothing is
/// judged.
Row editRow(const Sample& sample, const Effort& effort);

// MemoryRow.cpp
Row memoryRow(const Sample& sample, const Effort& effort);
/// Opens the document in `path` and prints the bytes of memory that it takes. Returns the exit status. Called
/// in a child process of `memoryRow`.
int printMemoryOfDocument(const char* path);

// GrowthRows.cpp
/// Measures the operations per node on trees with each number of links in `sizes`. Requires: at least two
/// numbers, in ascending order.
std::vector<Row> growthRows(const std::vector<std::size_t>& sizes, const Effort& effort);

} // namespace tabulon::bench
