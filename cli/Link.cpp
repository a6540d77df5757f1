// `link`: one bookmark of a document → a single-link file.
#include "cli/Verbs.h"
#include "formats/export/LinkFile.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <optional>
#include <string_view>

namespace tabulon::cli {
namespace {

// Takes the first index off the path; nothing for one that no list is long enough for.
std::optional<std::size_t> takeIndex(std::string_view& path) {
    const std::string_view digits = path.substr(0, path.find('/'));
    path.remove_prefix(std::min(path.size(), digits.size() + 1));
    std::size_t index = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), index);
    return read.ec == std::errc() ? std::optional(index) : std::nullopt;
}

// Null when there is none.
const Bookmark* nodeAt(const Bookmark& root, std::string_view path) {
    const Bookmark* node = &root;
    while (!path.empty()) {
        const std::optional<std::size_t> index = takeIndex(path);
        const ChildList* children = node->getChildren();
        if (!index || !children || *index >= children->size())
            return nullptr;
        node = children->at(*index);
    }
    return node;
}

} // namespace

bool isNodePath(std::string_view text) {
    return text.empty() ||
           (text.find_first_not_of("0123456789/") == std::string_view::npos && !text.starts_with('/') &&
            !text.ends_with('/') && text.find("//") == std::string_view::npos);
}

Result<void> exportLink(const Session& session, const std::string& input, const std::string& path,
                        const std::string& output) {
    const auto document = session.readDocument(input);
    if (!document)
        return tl::unexpected(document.error());
    const Bookmark* node = nodeAt((*document)->getMaster(), path);
    if (!node)
        return failure(input + ": There is no node at the path " + path + ".");
    const Result<std::string> bytes = exportToLinkFile(*node);
    if (!bytes)
        return failure(input + ": " + bytes.error().message);
    return session.write(output, *bytes);
}

} // namespace tabulon::cli
