// A reference implementation of the HTML export: recursive, slow, and without code of the export.
#pragma once

#include "model/Bookmark.h"

#include <string>

namespace tabulon::test {

/// Returns the whole file with the items in the order of the tree. Requires: `master` is a root.
std::string referenceExport(const Bookmark& master);

} // namespace tabulon::test
