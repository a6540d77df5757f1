#include "app/UnsavedDocuments.h"

#include "app/RevertPoints.h"
#include "base/Utf8.h"
#include "text/PercentCoding.h"
#include "window/SharedAlerts.h"

#include <fmt/format.h>

namespace tabulon {
namespace {

// In bytes: within the limit of every file system, with room for number and extension.
constexpr std::size_t kLongestName = 180;

// Returns a display name as part of a file's name. Characters that are not allowed in it are percent-encoded.
std::string fileNameOf(std::string_view name) {
    std::string fileName;
    std::size_t end = 0; // of the last whole character that there is room for
    for (const char c : name) {
        if (!utf8::isContinuation(c))
            end = fileName.size();
        if (static_cast<unsigned char>(c) < 0x20 || c == '/' || c == '%')
            percent::appendEscaped(fileName, c);
        else
            fileName += c;
        if (fileName.size() > kLongestName)
            return fileName.substr(0, end);
    }
    return fileName;
}

std::string extension() {
    return "." + std::string(kDocumentExtension);
}

// Returns the name after the number.
std::string displayNameIn(const std::string& path) {
    const std::string name = nameWithoutExtension(path);
    const std::size_t blank = name.find(' ');
    return percent::decode(blank == std::string::npos ? name : name.substr(blank + 1));
}

} // namespace

Result<std::string> UnsavedDocuments::pathFor(const Document& document) {
    if (const auto known = paths_.find(&document); known != paths_.end())
        return known->second;
    Result<std::string> folder = folders_.ownFolder();
    if (!folder)
        return folder;
    return fmt::format("{}/{} {}{}", *folder, ++lastNumber_, fileNameOf(document.displayName()), extension());
}

Result<void> UnsavedDocuments::keep(const Document& document) {
    const Result<std::string> path = pathFor(document);
    if (!path)
        return tl::unexpected(path.error());
    Result<void> written = files_.writeFileAtomically(*path, document.dataOfType(kDocumentType));
    if (written)
        paths_[&document] = *path;
    return written;
}

void UnsavedDocuments::forget(const Document& document) {
    const auto known = paths_.find(&document);
    if (known == paths_.end())
        return;
    // A copy that cannot be removed is opened again by the next start; no changes are lost by that.
    (void)files_.removeFile(known->second);
    paths_.erase(known);
}

std::vector<UnsavedDocuments::Copy> UnsavedDocuments::abandonedCopies() {
    std::vector<Copy> copies;
    for (const std::string& folder : folders_.adoptAbandonedFolders())
        for (const std::string& name : files_.namesInFolder(folder))
            if (RevertPoints::isCopy(name)) // only the process that made it could restore it
                (void)files_.removeFile(fmt::format("{}/{}", folder, name));
            else if (name.ends_with(extension()))
                copies.push_back({fmt::format("{}/{}", folder, name), displayNameIn(name)});
    return copies;
}

std::string UnsavedDocuments::putAside(const std::string& path) {
    std::string aside = path + ".damaged";
    if (!files_.copyFile(path, aside))
        return path;
    (void)files_.removeFile(path);
    return aside;
}

} // namespace tabulon
