// `versions`: the versions of a document that the desktop program has stored, and their restoration.
#include "app/VersionStore.h"
#include "cli/Lines.h"
#include "cli/Verbs.h"
#include "text/DateFormat.h"

#include <fmt/format.h>

#include <filesystem>
#include <system_error>

namespace tabulon::cli {
namespace {

struct Options {
    bool asJson = false;
    std::string document;
    std::optional<std::size_t> number; // of the version to restore
    std::string output;
};

VersionStore storeOf(const Session& session) {
    return {session.environment.files, session.environment.clock, session.services.defaults,
            session.environment.stateFolder + "/versions"};
}

// The store identifies documents by absolute paths.
Result<std::vector<DocumentVersion>> versionsOf(const Session& session, const std::string& document) {
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(document, error);
    if (error)
        return failure("The file “" + document + "” cannot be found: " + error.message() + ".");
    const std::string path = absolute.lexically_normal().string();
    std::vector<DocumentVersion> versions = storeOf(session).versionsOf(path);
    if (versions.empty() && !session.environment.files.fileExists(path))
        return failure("The file “" + document + "” does not exist, and no versions of it are kept.");
    return versions;
}

// Prints the stored versions of a document, newest first, with the numbers for `restoreVersion`. The document
// need not exist. Fails where neither the document nor a version of it exists.
Result<void> listVersions(const Session& session, const Options& options) {
    const auto versions = versionsOf(session, options.document);
    if (!versions)
        return tl::unexpected(versions.error());
    Lines lines(session);
    for (std::size_t index = 0; index < versions->size(); ++index) {
        const DocumentVersion& version = (*versions)[index];
        const std::string line =
            options.asJson
                ? fmt::format(R"({{"version":{},"saved":{:.3f},"replaced":{:.3f}}})", index + 1,
                              version.saved.unixSeconds(), version.kept.unixSeconds())
                : fmt::format("{}\t{}", index + 1,
                              formatDate(version.saved, "yyyy-MM-dd HH:mm:ss",
                                         session.services.texts.locale(), session.services.clock.timeZone()));
        if (!lines.add(line))
            break;
    }
    return lines.finish();
}

// Writes the bytes of a stored version. Fails for a number that is not in the list.
Result<void> restoreVersion(const Session& session, const Options& options, std::size_t number) {
    const auto versions = versionsOf(session, options.document);
    if (!versions)
        return tl::unexpected(versions.error());
    if (number < 1 || number > versions->size())
        return failure(fmt::format("There is no version {} of “{}”. The number of kept versions is {}.",
                                   number, options.document, versions->size()));
    const Result<std::string> bytes = storeOf(session).read((*versions)[number - 1]);
    return bytes ? session.write(options.output, *bytes) : Result<void>(tl::unexpected(bytes.error()));
}

Result<void> performVersions(const Session& session, const Options& options) {
    return options.number ? restoreVersion(session, options, *options.number)
                          : listVersions(session, options);
}

} // namespace

void addVersions(Tool tool) {
    Verb verb(tool, "versions", "List the kept versions of a document, newest first");
    const auto options = std::make_shared<Options>();
    const Option json = verb.flag("--json", options->asJson, "Print each version as a JSON object");
    verb.argument("DOCUMENT", options->document, "The file of the document, which need not exist");
    Option restore = verb.option("--restore", options->number, "Write the version with this number instead")
                         .type("N")
                         .excludes(json);
    Option output = verb.documentOutput(options->output);
    restore.needs(output);
    output.needs(restore);
    verb.setAction(options, performVersions);
}

} // namespace tabulon::cli
