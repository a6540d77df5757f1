#include "platform/linux/QtPasteboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace tabulon {
namespace {

QString typeName(std::string_view type) {
    return QString::fromLatin1(type.data(), static_cast<qsizetype>(type.size()));
}

} // namespace

std::optional<std::string> QtPasteboard::string() {
    const QMimeData* content = QGuiApplication::clipboard()->mimeData();
    if (!content || !content->hasText())
        return std::nullopt;
    return content->text().toStdString();
}

MimeContent QtPasteboard::content(std::span<const std::string_view> types) {
    MimeContent known;
    const QMimeData* held = QGuiApplication::clipboard()->mimeData();
    if (!held)
        return known;
    for (const std::string_view type : types)
        if (held->hasFormat(typeName(type)))
            known.set(type, held->data(typeName(type)).toStdString());
    return known;
}

void QtPasteboard::setContent(const MimeContent& content) {
    auto* data = new QMimeData; // the clipboard takes it over
    for (const auto& [type, bytes] : content.forms())
        data->setData(typeName(type), QByteArray::fromStdString(bytes));
    QGuiApplication::clipboard()->setMimeData(data);
}

} // namespace tabulon
