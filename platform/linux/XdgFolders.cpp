#include "platform/linux/XdgFolders.h"

#include <QDir>
#include <QFile>

namespace tabulon {
namespace {

// A relative path in the variable counts as none.
QString folder(const char* variable, const QString& fallback) {
    const QString value = QFile::decodeName(qgetenv(variable));
    const QString base = QDir::isAbsolutePath(value) ? value : QDir::home().filePath(fallback);
    return QDir(base).filePath("tabulon");
}

} // namespace

QString settingsFolder() {
    return folder("XDG_CONFIG_HOME", ".config");
}

QString stateFolder() {
    return folder("XDG_STATE_HOME", ".local/state");
}

} // namespace tabulon
