// What a file holds that the user wants opened: told by its content first, by its extension where the content
// says nothing.
#pragma once

#include "formats/ImportFormats.h"
#include "platform/FileStore.h"

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

/// Whether the file at `path` is one that is opened, and not one that holds a single link. A file that cannot
/// be read, or is not there, is one where it is called like a document, because opening it says what is
/// wrong. Reads more than the beginning only of files whose beginning leaves it open.
bool isOpenable(FileStore& files, const std::string& path);

} // namespace tabulon
