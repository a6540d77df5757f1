#include "platform/linux/QtPasteboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace tabulon {

std::optional<std::string> QtPasteboard::string() {
    const QMimeData* content = QGuiApplication::clipboard()->mimeData();
    if (!content || !content->hasText())
        return std::nullopt;
    return content->text().toStdString();
}

} // namespace tabulon
