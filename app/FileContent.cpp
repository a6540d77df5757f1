#include "app/FileContent.h"

#include "model/Ascii.h"
#include "model/ClassicReader.h"
#include "model/Document.h"

#include <algorithm>
#include <array>
#include <filesystem>

namespace tabulon {
namespace {

constexpr std::size_t kBytesLookedAt = 4096;

// The beginning of the file in lower case, without a byte-order mark and leading white space.
std::string beginning(std::string_view bytes) {
    if (bytes.starts_with("\xEF\xBB\xBF"))
        bytes.remove_prefix(3);
    const auto start = bytes.find_first_not_of(" \t\r\n");
    return start == std::string_view::npos ? std::string()
                                           : ascii::lowered(bytes.substr(start, kBytesLookedAt));
}

bool looksLikeHTML(const std::string& text) {
    constexpr auto kMarks =
        std::to_array<std::string_view>({"<!doctype netscape-bookmark", "<!doctype html", "<html", "<title",
                                         "<meta ", "<h1", "<dl>", "<dt>", "<a "});
    return text.starts_with('<') && std::ranges::any_of(kMarks, [&](std::string_view mark) {
               return text.find(mark) != std::string::npos;
           });
}

FileContent contentByExtension(const std::string& path) {
    const std::string extension = ascii::lowered(std::filesystem::path(path).extension().string());
    if (extension == "." + std::string(kDocumentExtension))
        return FileContent::BookmarkDocument;
    if (extension == ".html" || extension == ".htm")
        return FileContent::BookmarkHTML;
    return FileContent::Unknown;
}

} // namespace

FileContent contentOfFile(std::string_view bytes, const std::string& path) {
    if (bytes.starts_with("bplist") || classicFile(bytes))
        return FileContent::BookmarkDocument;
    const std::string text = beginning(bytes);
    if (text.find("<plist") != std::string::npos &&
        (text.starts_with("<?xml") || text.starts_with("<!doctype plist") || text.starts_with("<plist")))
        return FileContent::BookmarkDocument;
    if (looksLikeHTML(text))
        return FileContent::BookmarkHTML;
    return contentByExtension(path);
}

} // namespace tabulon
