// What a file holds that the user wants opened: told by its content first, by its extension where the content
// says nothing.
#pragma once

#include "formats/ImportFormats.h"

#include <string>
#include <string_view>

namespace tabulon {

struct FileContent {
    enum class Kind { Document, Import, Unknown };

    Kind kind = Kind::Unknown;
    /// For Import: what reads it.
    const ImportFormat* format = nullptr;
};

/// `path` is in the file system's encoding. The file need not be sound: what begins like a file of a kind is
/// one of them. Linear.
FileContent contentOfFile(std::string_view bytes, const std::string& path);

} // namespace tabulon
