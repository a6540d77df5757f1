// Tree → bookmarks as Chromium's manager and bar take them of the clipboard and of drags
// ("chromium/x-bookmark-entries"). The form is described in formats/import/ChromiumEntries.h.
#pragma once

#include "model/Bookmark.h"

#include <cstddef>
#include <string>

namespace tabulon {

/// Returns what is in the folder `root`: its links with a scheme, and its folders. Empty where nothing of
/// that is there, where it would be more than `most` bytes, or where folders are nested so deep that the
/// browser, which reads them by recursion, could run out of its stack. Linear, without recursion.
std::string exportToChromiumEntries(const Bookmark& root, std::size_t most);

} // namespace tabulon
