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
    const Result<std::string> folder = folders_.ownFolder();
    if (!folder)
        return;
    const std::string path = fmt::format("{}/{}{}", *folder, ++lastNumber_, kExtension);
    if (files_.copyFile(document.fileName(), path))
        paths_[&document] = path;
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
