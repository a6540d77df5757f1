#include "app/VersionStore.h"

#include "app/Compression.h"
#include "app/VersionNames.h"
#include "base/Settings.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>

namespace tabulon {
namespace {

constexpr std::uint64_t kMegabyte = 1'000'000;
constexpr std::size_t kLargestDocument = 0xFFFFFFFF;
constexpr double kNanoseconds = 1e9;
constexpr double kMillisecond = 0.001;
constexpr double kLargestStepBack = 86400; // seconds
constexpr std::string_view kBackupSuffix = ".backup";

std::string backupRecord(const std::string& backup, const FileIdentity& identity) {
    return fmt::format("{} {} {} {}\n{}", identity.device, identity.inode, identity.size, identity.modified,
                       backup);
}

} // namespace

VersionStore::VersionStore(FileStore& files, const Clock& clock, const UserDefaults& defaults,
                           std::string folder)
    : files_(files), clock_(clock), defaults_(defaults), folder_(std::move(folder)),
      places_(files_, folder_) {}

std::uint64_t VersionStore::limit() const {
    const std::int64_t megabytes = valueOf(defaults_, settings::kVersionsLimit);
    constexpr std::int64_t kMost = 1'000'000'000;
    return static_cast<std::uint64_t>(std::clamp<std::int64_t>(megabytes, 0, kMost)) * kMegabyte;
}

double VersionStore::now() const {
    return Date::now(clock_).unixSeconds();
}

// A new document at a path without a file does not continue the document that was there before.
Result<void> VersionStore::willReplace(const std::string& path, const std::string& fileBefore) {
    if (!isOn())
        return {};
    const bool isNew = fileBefore != path && !files_.fileExists(path);
    replaced_ = isNew ? places_.newIdentifier(path) : places_.identifierFor(path, nextTime(path));
    return keepFileOf(replaced_, path);
}

void VersionStore::didReplace(const std::string& path, const std::string& fileBefore) {
    if (!isOn())
        return;
    if (fileBefore.empty() || fileBefore == path)
        (void)places_.note(replaced_, path);
    else
        (void)places_.noteCopy(replaced_, path, fileBefore, nextTime(fileBefore));
}

Result<void> VersionStore::keepFile(const std::string& path) {
    if (!isOn() || !files_.fileExists(path))
        return {};
    return keepFileOf(places_.identifierFor(path, nextTime(path)), path);
}

Result<void> VersionStore::keepFileOf(const std::string& identifier, const std::string& path) {
    const std::optional<FileIdentity> identity = files_.identityOf(path);
    if (!identity || files_.kindOf(path) != PathKind::File)
        return {};
    if (identity->size > std::min<std::uint64_t>(limit(), kLargestDocument))
        return failure("The version of “" + path + "” is too large to be kept.");
    const Result<std::string> bytes = files_.readFile(path);
    if (!bytes)
        return tl::unexpected(bytes.error());
    return keep(identifier, path, *bytes, static_cast<double>(identity->modified) / kNanoseconds);
}

Result<void> VersionStore::keepContent(const std::string& path, std::string_view bytes) {
    return isOn() ? keep(places_.identifierFor(path, nextTime(path)), path, bytes, now()) : Result<void>();
}

Result<void> VersionStore::keep(const std::string& identifier, const std::string& path,
                                std::string_view bytes, double saved) {
    const std::string frame = compress(bytes);
    if (frame.size() > limit())
        return failure("The version of “" + path + "” is too large to be kept.");
    if (Result<void> made = files_.makeFolder(folder_); !made)
        return made;
    if (Result<void> noted = places_.noteNew(identifier, path); !noted)
        return noted;
    const std::vector<std::string> equal = equalVersions(identifier, frame);
    const VersionName name{identifier, nextTime(path), saved};
    if (Result<void> written = files_.writeFileAtomically(folder_ + "/" + name.string(), frame); !written)
        return written;
    for (const std::string& old : equal)
        (void)files_.removeFile(folder_ + "/" + old);
    thinOut();
    return {};
}

std::vector<std::string> VersionStore::versionNamesOf(const std::string& identifier) const {
    std::vector<std::string> names;
    for (std::string& name : files_.namesInFolder(folder_))
        if (name.starts_with(identifier + " ") && VersionName::parse(name))
            names.push_back(std::move(name));
    return names;
}

// Returns the current time, or a millisecond after the newest version if the clock was set back a little, so
// that the order stays. A version from more than a day in the future is ignored, because the clock was wrong
// then.
double VersionStore::nextTime(const std::string& path) const {
    double time = now();
    for (const DocumentVersion& version : versionsOf(path)) {
        const double kept = version.kept.unixSeconds();
        if (kept + kMillisecond > time && kept < now() + kLargestStepBack)
            time = kept + kMillisecond;
    }
    return time;
}

std::vector<std::string> VersionStore::equalVersions(const std::string& identifier,
                                                     std::string_view frame) const {
    std::vector<std::string> equal;
    for (std::string& name : versionNamesOf(identifier)) {
        const std::string file = folder_ + "/" + name;
        const std::optional<FileIdentity> identity = files_.identityOf(file);
        if (!identity || identity->size != frame.size())
            continue;
        if (const Result<std::string> content = files_.readFile(file); content && *content == frame)
            equal.push_back(std::move(name));
    }
    return equal;
}

void VersionStore::thinOut() {
    std::vector<std::string> names;
    std::vector<KeptVersion> versions;
    const auto look = [&] {
        names.clear();
        versions.clear();
        for (std::string& name : files_.namesInFolder(folder_)) {
            const std::optional<VersionName> parts = VersionName::parse(name);
            const auto identity = parts ? files_.identityOf(folder_ + "/" + name) : std::nullopt;
            if (!identity)
                continue;
            versions.push_back({parts->identifier, parts->kept, identity->size});
            names.push_back(std::move(name));
        }
    };
    look();
    remove(names, versionsTooClose(versions, now()));
    look();
    remove(names, versionsOverLimit(versions, limit()));
    forgetDocumentsWithoutVersions();
}

void VersionStore::forgetDocumentsWithoutVersions() {
    const std::vector<std::string> names = files_.namesInFolder(folder_);
    std::set<std::string> used;
    for (const std::string& name : names)
        if (const std::optional<VersionName> parts = VersionName::parse(name))
            used.insert(parts->identifier);
    const std::set<std::string> kept = places_.forgetUnused(used);
    for (const std::string& name : names)
        if (name.ends_with(kBackupSuffix) &&
            !kept.contains(name.substr(0, name.size() - kBackupSuffix.size())))
            (void)files_.removeFile(folder_ + "/" + name);
}

void VersionStore::remove(const std::vector<std::string>& names, const std::vector<std::size_t>& indexes) {
    for (const std::size_t index : indexes)
        (void)files_.removeFile(folder_ + "/" + names[index]);
}

void VersionStore::noteOpened(const std::string& path) {
    if (isOn() && !places_.sourcesOf(path).empty())
        (void)places_.note(places_.identifierFor(path, nextTime(path)), path);
}

std::vector<DocumentVersion> VersionStore::versionsOf(const std::string& path) const {
    std::vector<DocumentVersion> versions;
    for (const VersionPlaces::Source& source : places_.sourcesOf(path))
        for (const std::string& name : versionNamesOf(source.identifier))
            if (const VersionName parts = *VersionName::parse(name); parts.kept <= source.until)
                versions.push_back({Date::fromUnixSeconds(parts.saved), Date::fromUnixSeconds(parts.kept),
                                    folder_ + "/" + name});
    std::ranges::sort(versions, std::ranges::greater(),
                      [](const DocumentVersion& version) { return version.kept.referenceSeconds(); });
    return versions;
}

Result<std::string> VersionStore::read(const DocumentVersion& version) const {
    const Result<std::string> frame = files_.readFile(version.path);
    if (!frame)
        return tl::unexpected(frame.error());
    Result<std::string> bytes = decompress(*frame, kLargestDocument);
    if (!bytes)
        return failure("The kept version “" + version.path + "” cannot be read: " + bytes.error().message);
    return bytes;
}

std::string VersionStore::backupFileOf(const std::string& identifier) const {
    return folder_ + "/" + identifier + std::string(kBackupSuffix);
}

bool VersionStore::isBackupOf(const std::string& path, const std::string& backup) const {
    const std::optional<FileIdentity> identity = files_.identityOf(backup);
    if (!identity)
        return false;
    const std::vector<VersionPlaces::Source> sources = places_.sourcesOf(path);
    return std::ranges::any_of(sources, [&](const VersionPlaces::Source& source) {
        const Result<std::string> record = files_.readFile(backupFileOf(source.identifier));
        return record && *record == backupRecord(backup, *identity);
    });
}

void VersionStore::noteBackup(const std::string& path, const std::string& backup) {
    const std::optional<FileIdentity> identity = files_.identityOf(backup);
    if (!identity || !files_.makeFolder(folder_))
        return;
    const std::string identifier = places_.identifierFor(path, nextTime(path));
    (void)places_.noteNew(identifier, path);
    (void)files_.writeFileAtomically(backupFileOf(identifier), backupRecord(backup, *identity));
    if (!isOn()) // otherwise done when a version is kept
        forgetDocumentsWithoutVersions();
}

} // namespace tabulon
