// One run of the command-line tool: its services, and the files that commands read and write. Paths are in
// the file system's encoding; "-" is standard input or output.
#pragma once

#include "base/BaseServices.h"
#include "cli/CommandLine.h"
#include "model/Document.h"

#include <memory>
#include <string>
#include <string_view>

namespace tabulon::cli {

/// The services and streams of one run. Refers to objects that must outlive it.
struct Session {
    const Environment& environment;
    /// The clock and the log of the environment, the settings of this run, and English texts for its locale.
    BaseServices services;

    /// Returns the bytes of a file, or of standard input for "-". Fails with the error of the file store or
    /// of the stream.
    Result<std::string> read(const std::string& path) const;
    /// Replaces the file atomically, or writes to standard output for "-". Fails with the error of the file
    /// store, and leaves an existing file as it was, or with that of the stream.
    Result<void> write(const std::string& path, std::string_view bytes) const;
    /// Writes a sentence to standard error, where the desktop program would show an informational alert. Adds
    /// the line feed. The caller does not learn of a failure.
    void inform(const std::string& sentence) const;
    /// Returns the document in a file, or on standard input for "-". Fails with a sentence that names the
    /// file. The error of a file that is no document keeps its domain and code.
    Result<std::unique_ptr<Document>> readDocument(const std::string& path) const;
    /// Writes a document as `write`.
    Result<void> writeDocument(const std::string& path, const Document& document) const;
};

} // namespace tabulon::cli
