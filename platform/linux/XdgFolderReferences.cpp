#include "platform/linux/XdgFolderReferences.h"

#include <QFile>
#include <QStandardPaths>

namespace tabulon {

std::optional<std::string> XdgFolderReferences::resolve(std::string_view key) {
    std::optional<std::string> path = defaults_.stringForKey(key);
    if (path && (path->empty() || !files_.fileExists(*path)))
        return std::nullopt;
    return path;
}

void XdgFolderReferences::store(std::string_view key, const std::string& path) {
    defaults_.setStringForKey(key, path);
}

std::optional<std::string> XdgFolderReferences::documentsFolder() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    const std::string path = QFile::encodeName(folder).toStdString();
    if (path.empty() || !files_.fileExists(path))
        return std::nullopt;
    return path;
}

} // namespace tabulon
