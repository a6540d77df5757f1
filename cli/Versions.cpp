// `versions`: the versions of a document that the desktop program has stored, and their restoration.
#include "app/VersionStore.h"
#include "cli/Lines.h"
#include "cli/Verbs.h"
#include "text/DateFormat.h"

#include <fmt/format.h>

#include <filesystem>

namespace tabulon::cli {
namespace {

VersionStore storeOf(const Session& session) {
    return {session.environment.files, session.environment.clock, session.services.defaults,
            session.environment.stateFolder + "/versions"};
}

// The store identifies documents by absolute paths.
Result<std::vector<DocumentVersion>> versionsOf(const Session& session, const std::string& document) {
    const std::string path = std::filesystem::absolute(document).lexically_normal().string();
    std::vector<DocumentVersion> versions = storeOf(session).versionsOf(path);
    if (versions.empty() && !session.environment.files.fileExists(path))
        return failure("The file “" + document + "” does not exist, and no versions of it are kept.");
    return versions;
}

} // namespace

Result<void> listVersions(const Session& session, const std::string& document, bool asJson) {
    const auto versions = versionsOf(session, document);
    if (!versions)
        return tl::unexpected(versions.error());
    Lines lines(session);
    for (std::size_t index = 0; index < versions->size(); ++index) {
        const DocumentVersion& version = (*versions)[index];
        const std::string line =
            asJson
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

Result<void> restoreVersion(const Session& session, const std::string& document, std::size_t number,
                            const std::string& output) {
    const auto versions = versionsOf(session, document);
    if (!versions)
        return tl::unexpected(versions.error());
    if (number < 1 || number > versions->size())
        return failure(
            fmt::format("There is no version {} of “{}”: {} are kept.", number, document, versions->size()));
    const Result<std::string> bytes = storeOf(session).read((*versions)[number - 1]);
    return bytes ? session.write(output, *bytes) : Result<void>(tl::unexpected(bytes.error()));
}

} // namespace tabulon::cli
