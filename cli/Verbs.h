// The verbs of the command-line tool, and the services, inputs and outputs that they share. Paths are in the
// file system's encoding; "-" is standard input or output.
#pragma once

#include "base/BaseServices.h"
#include "cli/CommandLine.h"
#include "model/Document.h"
#include "model/StatusRemoval.h"
#include "model/TreeSort.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tabulon::cli {

/// The services and streams of one run.
struct Session {
    const Environment& environment;
    BaseServices services;

    /// Returns the bytes of a file, or of standard input for "-".
    Result<std::string> read(const std::string& path) const;
    /// Replaces the file atomically, or writes to standard output for "-".
    Result<void> write(const std::string& path, std::string_view bytes) const;
    /// Writes a sentence to standard error, where the desktop program would show an informational alert.
    void inform(const std::string& sentence) const;
    /// Returns the document in a file, or on standard input for "-". Fails with a sentence that names the
    /// file.
    Result<std::unique_ptr<Document>> readDocument(const std::string& path) const;
    /// Writes a document as `write`.
    Result<void> writeDocument(const std::string& path, const Document& document) const;
};

/// Converts a file of another format to a document, or a document to a file. Fails with a sentence; an import
/// also where the file contains no link and its format reports that. Requires: the name of an import or
/// export format.
Result<void> importFile(const Session& session, const std::string& format, const std::string& input,
                        const std::string& output);
Result<void> exportFile(const Session& session, const std::string& format, const std::string& input,
                        const std::string& output);

/// Prints the tree, one indented line for each node.
Result<void> showForPeople(const Session& session, const std::string& input);
/// Prints the tree as the JSON of JsonTree.h, on one line.
Result<void> showAsJson(const Session& session, const std::string& input);

/// Writes a document with the tree in the JSON of JsonTree.h.
Result<void> makeFromJson(const Session& session, const std::string& input, const std::string& output);

/// Writes the link at `path` as a link file. Fails where the document has no such node, or the node has no
/// URL. Requires: the form of a node path.
Result<void> exportLink(const Session& session, const std::string& input, const std::string& path,
                        const std::string& output);

/// Whether the document is written with the duplicates marked, or without them.
enum class DuplicatesOutput { Marked, Deleted };

/// Prints path, TAB and URL of every duplicate, or its JSON, one line for each. The Waste Basket counts as
/// the last item of the document: of two equal links, of which one is in it, that one is the duplicate.
Result<void> listDuplicates(const Session& session, const std::string& input, bool asJson);
/// Writes the document with its duplicates marked or deleted. Writes a summary of what was deleted to
/// standard error.
Result<void> writeDuplicates(const Session& session, const std::string& input, DuplicatesOutput kind,
                             const std::string& output);

/// Writes the document without the links of these statuses, or with them moved into its Waste Basket. Writes
/// a summary to standard error.
Result<void> removeFromDocument(const Session& session, const std::string& input,
                                const RemovalOptions& options, const std::string& output);

/// Writes the document with its whole tree sorted.
Result<void> sortDocument(const Session& session, const std::string& input, SortKey key,
                          SortDirection direction, const std::string& output);

/// Prints the number of matches of the text, and the nodes that finding visits in one round, one line for
/// each. The empty text has no match.
Result<void> findInDocument(const Session& session, const std::string& text, const std::string& input,
                            bool asJson);

/// Prints the changes from one document to the other (TreeComparison.h), one line for each: its kind, the
/// path after the change (for a removed node: before), the name and the address. "/dev/null" is an empty
/// document, since version control passes it for a file that does not exist.
Result<void> compareDocuments(const Session& session, const std::string& before, const std::string& after,
                              bool asJson);

/// Prints the stored versions of a document, newest first, with the numbers for `restoreVersion`. The
/// document need not exist. Fails where neither the document nor a version of it exists.
Result<void> listVersions(const Session& session, const std::string& document, bool asJson);
/// Writes the bytes of a stored version. Fails for a number that is not in the list.
Result<void> restoreVersion(const Session& session, const std::string& document, std::size_t number,
                            const std::string& output);

} // namespace tabulon::cli
