// The rules of the HTML export a second time, word for word: recursive, slow, and sharing nothing with the
// real one.
#pragma once

#include "model/Bookmark.h"

#include <string>

namespace tabulon::test {

/// The whole file in the order of the tree. `master` is a root.
std::string literalExport(const Bookmark& master);

} // namespace tabulon::test
