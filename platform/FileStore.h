// Files as the program needs them: read whole, written whole or not at all. Everything that touches the disk
// goes through here, so that a test can fill the disk or take a folder away.
#pragma once

#include "model/Error.h"

#include <string>
#include <string_view>

namespace tabulon {

class FileStore {
public:
    virtual ~FileStore() = default;

    /// The whole content of the file at `path`, which is in the file system's encoding. Fails with errno and
    /// a sentence that names the file.
    virtual Result<std::string> readFile(const std::string& path) = 0;

    /// Replaces the file at `path`, or makes it: the bytes go to a temporary file in the same folder, are
    /// flushed to the disk and renamed over the old file, whose mode they keep. A symbolic link is followed
    /// to its target. On failure the old file is untouched and no temporary file stays; the error has errno
    /// and a sentence that names the file.
    virtual Result<void> writeFileAtomically(const std::string& path, std::string_view bytes) = 0;

    virtual bool fileExists(const std::string& path) = 0;
};

} // namespace tabulon
