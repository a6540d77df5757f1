// What a file holds that the user wants opened: told by its content first, by its extension where the content
// says nothing.
#pragma once

#include <string>
#include <string_view>

namespace tabulon {

enum class FileContent { BookmarkDocument, BookmarkHTML, Unknown };

/// `path` is in the file system's encoding. Looks at the first few thousand bytes only.
FileContent contentOfFile(std::string_view bytes, const std::string& path);

} // namespace tabulon
