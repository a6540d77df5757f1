#include "app/RevertPoints.h"

#include <fmt/format.h>

namespace tabulon {

RevertPoints::~RevertPoints() {
    for (const auto& [document, path] : paths_)
        (void)files_.removeFile(path);
}

void RevertPoints::keep(const Document& document) {
    if (has(document))
        return;
    if (const Result<std::string> path = copy(document))
        paths_[&document] = *path;
    else
        log_.log(fmt::format("“{}” was not kept for Revert to Saved: {}", document.fileName(),
                             path.error().message));
}

// Returns the path of the new copy.
Result<std::string> RevertPoints::copy(const Document& document) {
    Result<std::string> folder = folders_.ownFolder();
    if (!folder)
        return folder;
    const std::string path = fmt::format("{}/{}{}", *folder, ++lastNumber_, kExtension);
    if (const Result<void> copied = files_.copyFile(document.fileName(), path); !copied)
        return tl::unexpected(copied.error());
    return path;
}

Result<std::string> RevertPoints::read(const Document& document) {
    return files_.readFile(paths_.at(&document));
}

void RevertPoints::forget(const Document& document) {
    const auto known = paths_.find(&document);
    if (known == paths_.end())
        return;
    (void)files_.removeFile(known->second);
    paths_.erase(known);
}

} // namespace tabulon
