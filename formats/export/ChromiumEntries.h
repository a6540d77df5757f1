// Tree → "chromium/x-bookmark-entries", the format in which the bookmark manager and the bookmark bar of
// Chromium read the clipboard and drags. The bytes are described in formats/import/ChromiumEntries.h.
#pragma once

#include "model/Bookmark.h"

#include <cstddef>
#include <string>

namespace tabulon {

/// Returns the contents of the folder `root`: its folders, and its links whose address has a scheme.
/// Separators are left out.
///
/// Returns an empty string where `root` contains no such node, where the result would have more than `most`
/// bytes, or where nodes are nested more than 200 folders deep: the browser parses them recursively and could
/// exhaust its stack. Linear, without recursion.
std::string exportToChromiumEntries(const Bookmark& root, std::size_t most);

} // namespace tabulon
