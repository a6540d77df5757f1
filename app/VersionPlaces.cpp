#include "app/VersionPlaces.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <limits>

namespace tabulon {
namespace {

constexpr std::string_view kPlaceSuffix = ".place";
constexpr std::size_t kDigits = 16;
constexpr double kMilliseconds = 1000;

// FNV-1a with 64 bits. Collisions are resolved by `newIdentifier`.
std::uint64_t hashOf(std::string_view text) {
    std::uint64_t hash = 0xcbf29ce484222325u;
    for (const char c : text)
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3u;
    return hash;
}

template <class Number>
bool takeNumber(std::string_view& line, Number& number) {
    line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
    const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), number);
    line.remove_prefix(static_cast<std::size_t>(end - line.data()));
    return error == std::errc();
}

} // namespace

std::string VersionPlaces::fileOf(const std::string& identifier) const {
    return folder_ + "/" + identifier + std::string(kPlaceSuffix);
}

std::optional<VersionPlaces::Place> VersionPlaces::readPlace(const std::string& name) const {
    const Result<std::string> content = files_.readFile(folder_ + "/" + name);
    if (!content)
        return std::nullopt;
    std::string_view line = *content;
    FileIdentity identity;
    if (!takeNumber(line, identity.device) || !takeNumber(line, identity.inode) ||
        !takeNumber(line, identity.size) || !takeNumber(line, identity.modified))
        return std::nullopt;
    Place place{.identifier = name.substr(0, name.size() - kPlaceSuffix.size())};
    while (line.starts_with(' ')) {
        Origin origin{std::string(line.substr(1, kDigits)), 0};
        line.remove_prefix(std::min(line.size(), kDigits + 1));
        if (origin.identifier.size() != kDigits || !takeNumber(line, origin.copied))
            return std::nullopt;
        place.origins.push_back(std::move(origin));
    }
    if (!line.starts_with('\n'))
        return std::nullopt;
    place.path = line.substr(1);
    if (identity.inode != 0)
        place.identity = identity;
    return place;
}

VersionPlaces::Place VersionPlaces::placeOf(const std::string& identifier) const {
    if (known_) {
        const auto place = std::ranges::find(*known_, identifier, &Place::identifier);
        return place == known_->end() ? Place{.identifier = identifier} : *place;
    }
    return readPlace(identifier + std::string(kPlaceSuffix)).value_or(Place{.identifier = identifier});
}

Result<void> VersionPlaces::writePlace(const Place& place) {
    const FileIdentity now = place.identity.value_or(FileIdentity{});
    std::string content = fmt::format("{} {} {} {}", now.device, now.inode, now.size, now.modified);
    for (const Origin& origin : place.origins)
        content += fmt::format(" {} {}", origin.identifier, origin.copied);
    content += "\n" + place.path;
    if (placeOf(place.identifier) == place)
        return {};
    if (Result<void> made = files_.makeFolder(folder_); !made)
        return made;
    Result<void> written = files_.writeFileAtomically(fileOf(place.identifier), content);
    if (!written || !known_)
        return written;
    const auto after = std::ranges::lower_bound(*known_, place.identifier, {}, &Place::identifier);
    if (after != known_->end() && after->identifier == place.identifier)
        *after = place;
    else
        known_->insert(after, place);
    return written;
}

std::vector<VersionPlaces::Place> VersionPlaces::readPlaces() const {
    std::vector<Place> found;
    for (const std::string& name : files_.namesInFolder(folder_))
        if (name.ends_with(kPlaceSuffix))
            if (std::optional<Place> place = readPlace(name))
                found.push_back(std::move(*place));
    return found;
}

// Returns the documents that have exactly the file at the path, those first that were known at that path.
std::vector<std::string> VersionPlaces::withFile(const std::vector<Place>& all,
                                                 const std::string& path) const {
    const std::optional<FileIdentity> identity = files_.identityOf(path);
    std::vector<std::string> found;
    if (!identity)
        return found;
    for (const bool atPath : {true, false})
        for (const Place& place : all)
            if (place.identity == identity && (place.path == path) == atPath)
                found.push_back(place.identifier);
    if (found.empty())
        for (const Place& place : all)
            if (place.path != path && files_.identityOf(place.path) == identity)
                found.push_back(place.identifier);
    return found;
}

std::vector<VersionPlaces::Source> VersionPlaces::sourcesOf(const std::string& path) const {
    const std::vector<Place> all = places();
    std::vector<Source> sources;
    const auto add = [&](const std::string& identifier, double until) {
        const bool isKnown =
            std::ranges::any_of(sources, [&](const Source& known) { return known.identifier == identifier; });
        if (!isKnown)
            sources.push_back({identifier, until});
    };
    constexpr double kForEver = std::numeric_limits<double>::infinity();
    for (const std::string& identifier : withFile(all, path))
        add(identifier, kForEver);
    if (sources.empty())
        for (const Place& place : all)
            if (place.path == path)
                add(place.identifier, kForEver);
    for (std::size_t index = 0; index < sources.size(); ++index) {
        const Source source = sources[index];
        const auto place = std::ranges::find(all, source.identifier, &Place::identifier);
        if (place != all.end())
            for (const Origin& origin : place->origins)
                add(origin.identifier,
                    std::min(source.until, static_cast<double>(origin.copied) / kMilliseconds));
    }
    return sources;
}

std::string VersionPlaces::newIdentifier(const std::string& path) const {
    std::uint64_t hash = hashOf(path);
    while (files_.fileExists(fileOf(fmt::format("{:016x}", hash))))
        ++hash;
    return fmt::format("{:016x}", hash);
}

std::string VersionPlaces::identifierFor(const std::string& path, double now) {
    const std::vector<Place> all = places();
    if (const std::vector<std::string> found = withFile(all, path); !found.empty())
        return found.front();
    std::string identifier = newIdentifier(path);
    const auto known = std::ranges::find(all, path, &Place::path);
    if (known == all.end())
        return identifier;
    if (!files_.fileExists(path))
        return known->identifier;
    Place place{.identifier = identifier, .identity = files_.identityOf(path), .path = path};
    for (const Place& each : all)
        if (each.path == path)
            place.origins.push_back({each.identifier, static_cast<std::uint64_t>(now * kMilliseconds)});
    (void)writePlace(place);
    return identifier;
}

Result<void> VersionPlaces::note(const std::string& identifier, const std::string& path) {
    Place place = placeOf(identifier);
    place.path = path;
    place.identity = files_.identityOf(path);
    return writePlace(place);
}

Result<void> VersionPlaces::noteNew(const std::string& identifier, const std::string& path) {
    return files_.fileExists(fileOf(identifier)) ? Result<void>() : note(identifier, path);
}

Result<void> VersionPlaces::noteCopy(const std::string& identifier, const std::string& path,
                                     const std::string& source, double now) {
    Place place = placeOf(identifier);
    place.path = path;
    place.identity = files_.identityOf(path);
    for (const Source& each : sourcesOf(source))
        if (each.identifier != identifier &&
            std::ranges::find(place.origins, each.identifier, &Origin::identifier) == place.origins.end())
            place.origins.push_back(
                {each.identifier, static_cast<std::uint64_t>(std::min(each.until, now) * kMilliseconds)});
    return writePlace(place);
}

std::set<std::string> VersionPlaces::forgetUnused(const std::set<std::string>& used) {
    const std::vector<Place> all = places();
    std::vector<const Place*> kept;
    std::set<std::string> identifiers;
    const auto keep = [&](const Place& place) {
        if (identifiers.insert(place.identifier).second)
            kept.push_back(&place);
    };
    for (const Place& place : all)
        if (used.contains(place.identifier) ||
            (place.identity && files_.identityOf(place.path) == place.identity))
            keep(place);
    for (std::size_t index = 0; index < kept.size(); ++index)
        for (const Origin& origin : kept[index]->origins)
            if (const auto place = std::ranges::find(all, origin.identifier, &Place::identifier);
                place != all.end())
                keep(*place);
    for (const Place& place : all)
        if (!identifiers.contains(place.identifier))
            (void)files_.removeFile(fileOf(place.identifier));
    if (known_)
        std::erase_if(*known_, [&](const Place& place) { return !identifiers.contains(place.identifier); });
    return identifiers;
}

} // namespace tabulon
