// The verbs of the command-line tool and what they share: services of one run, inputs and outputs.
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

/// One run: the services that the verbs hand on, and where files and streams are.
struct Session {
    const Environment& environment;
    BaseServices services;

    /// The bytes of a file, or of standard input for "-".
    Result<std::string> read(const std::string& path) const;
    /// Replaces the file atomically, or writes to standard output for "-".
    Result<void> write(const std::string& path, std::string_view bytes) const;
    /// A sentence for people, on standard error: what the desktop program would show as information.
    void inform(const std::string& sentence) const;
    /// The document in a file or on standard input.
    Result<std::unique_ptr<Document>> readDocument(const std::string& path) const;
    Result<void> writeDocument(const std::string& path, const Document& document) const;
};

/// Requires the name of an import or export format.
Result<void> importFile(const Session& session, const std::string& format, const std::string& input,
                        const std::string& output);
Result<void> exportFile(const Session& session, const std::string& format, const std::string& input,
                        const std::string& output);

Result<void> showForPeople(const Session& session, const std::string& input);
Result<void> showAsJson(const Session& session, const std::string& input);

Result<void> makeFromJson(const Session& session, const std::string& input, const std::string& output);

/// Requires a node path.
Result<void> exportLink(const Session& session, const std::string& input, const std::string& path,
                        const std::string& output);

/// What becomes of the duplicates: the document is written with them marked, or without them.
enum class DuplicatesOutput { Marked, Deleted };

/// Prints path, TAB and URL of every duplicate, or its JSON. Of two equal links in a document with a Waste
/// Basket the one in the basket is the duplicate: it counts as the last item of the document.
Result<void> listDuplicates(const Session& session, const std::string& input, bool asJson);
Result<void> writeDuplicates(const Session& session, const std::string& input, DuplicatesOutput kind,
                             const std::string& output);

/// Writes the document without the links of these statuses, or with them moved into its Waste Basket.
Result<void> removeFromDocument(const Session& session, const std::string& input,
                                const RemovalOptions& options, const std::string& output);

/// Writes the document with its whole tree sorted.
Result<void> sortDocument(const Session& session, const std::string& input, SortKey key,
                          SortDirection direction, const std::string& output);

/// Prints how many matches the text has, and the nodes that finding visits, once round. The empty text has
/// none.
Result<void> findInDocument(const Session& session, const std::string& text, const std::string& input,
                            bool asJson);

/// Prints what was added, removed, moved, renamed and edited from one document to the other
/// (TreeComparison.h): one line a change with its kind, the path in the document after (of what was removed:
/// before), the name and the address. "/dev/null" is an empty document, as version control names files that
/// are not there.
Result<void> compareDocuments(const Session& session, const std::string& before, const std::string& after,
                              bool asJson);

/// Prints the kept versions of a document, newest first, with the number by which `restoreVersion` takes
/// them. The document need not exist any more. Fails when neither it nor a version of it exists.
Result<void> listVersions(const Session& session, const std::string& document, bool asJson);
/// Writes a kept version as it was. Fails for a number that is not in the list.
Result<void> restoreVersion(const Session& session, const std::string& document, std::size_t number,
                            const std::string& output);

} // namespace tabulon::cli
