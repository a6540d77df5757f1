#include "app/OpenDocuments.h"

#include <algorithm>
#include <utility>

namespace tabulon {

std::vector<Document*> OpenDocuments::documents() const {
    std::vector<Document*> result;
    for (const auto& opened : list_)
        result.push_back(&opened->document);
    return result;
}

OpenDocument* OpenDocuments::find(const Document& document) const {
    const auto found =
        std::ranges::find_if(list_, [&](const auto& opened) { return &opened->document == &document; });
    return found == list_.end() ? nullptr : found->get();
}

OpenDocument* OpenDocuments::findFile(const std::string& path, const Document* except) const {
    const auto found = std::ranges::find_if(list_, [&](const auto& opened) {
        return &opened->document != except && isSameFile(files_, opened->document.fileName(), path);
    });
    return found == list_.end() ? nullptr : found->get();
}

OpenDocument& OpenDocuments::add(std::unique_ptr<OpenDocument> opened) {
    list_.push_back(std::move(opened));
    return *list_.back();
}

std::unique_ptr<OpenDocument> OpenDocuments::take(const Document& document) {
    const auto found =
        std::ranges::find_if(list_, [&](const auto& opened) { return &opened->document == &document; });
    std::unique_ptr<OpenDocument> taken = std::move(*found);
    list_.erase(found);
    return taken;
}

} // namespace tabulon
