// The kind of a file that the user opens: determined by its content, and by its extension if the content does
// not decide.
#pragma once

#include "formats/ImportFormats.h"
#include "platform/FileStore.h"

#include <string>
#include <string_view>

namespace tabulon {

/// The kind of a file.
struct FileContent {
    /// A bookmark document, a bookmark file of another program or a page, or neither.
    enum class Kind { Document, Import, Unknown };

    Kind kind = Kind::Unknown;
    /// The format that reads it, for Import; else `nullptr`.
    const ImportFormat* format = nullptr;
};

/// Returns the kind of the file with the content `bytes` at `path`, which is in the file system's encoding. A
/// damaged file has the kind that it begins like. The time is linear in the size of the file.
FileContent contentOfFile(std::string_view bytes, const std::string& path);

/// Returns whether the file at `path` is of a kind that is opened, and not a file of a single link. A file
/// that cannot be read, or is missing, is one if its extension is that of documents, because opening it
/// reports the error. Reads more than the beginning only if the beginning does not decide.
bool isOpenable(FileStore& files, const std::string& path);

} // namespace tabulon
