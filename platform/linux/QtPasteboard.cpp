#include "platform/linux/QtPasteboard.h"

#include "platform/linux/X11.h"
#include "platform/linux/X11SelectionReader.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <algorithm>
#include <chrono>

namespace tabulon {
namespace {

constexpr std::string_view kLinkListType = "text/x-moz-url";
using Clock = std::chrono::steady_clock;
using Deadline = Clock::time_point;
constexpr auto kPatience = std::chrono::seconds(4); // for all types; Qt waits five seconds for each

constexpr std::size_t kLargestLinkList = std::size_t{1} << 28;

// Qt on X11 reads such a list of another program as a list of URIs.
void replaceLinkList(MimeContent& content, const char* selection) {
    if (const auto list = x11::readSelection(selection, kLinkListType.data(), kLargestLinkList))
        content.set(kLinkListType, *list);
}

QString typeName(std::string_view type) {
    return QString::fromLatin1(type.data(), static_cast<qsizetype>(type.size()));
}

} // namespace

std::optional<std::string> QtPasteboard::string() {
    const QMimeData* content = QGuiApplication::clipboard()->mimeData();
    if (!content || !content->hasFormat("text/plain"))
        return std::nullopt;
    return content->text().toStdString();
}

MimeContent QtPasteboard::content(std::span<const std::string_view> types) {
    MimeContent known;
    const QMimeData* held = QGuiApplication::clipboard()->mimeData();
    if (!held)
        return known;
    // Read once: each request to a program that does not answer waits for the limit.
    const QStringList formats = held->formats();
    const Deadline deadline = Clock::now() + kPatience;
    for (const std::string_view type : types)
        if (formats.contains(typeName(type)) && Clock::now() < deadline)
            known.set(type, held->data(typeName(type)).toStdString());
    const bool asksForLinks = std::ranges::find(types, kLinkListType) != types.end();
    if (asksForLinks && Clock::now() < deadline && x11::connection() &&
        !QGuiApplication::clipboard()->ownsClipboard() && formats.contains("text/uri-list"))
        replaceLinkList(known, "CLIPBOARD");
    return known;
}

void QtPasteboard::dragBegins(const MimeContent& content) {
    const std::string* list = content.get(kLinkListType);
    linkLists_.setDragged(list ? QByteArray::fromStdString(*list) : QByteArray());
}

MimeContent QtPasteboard::draggedContent(std::span<const std::string_view> types) {
    MimeContent content;
    if (x11::connection() && std::ranges::find(types, kLinkListType) != types.end())
        replaceLinkList(content, "XdndSelection");
    return content;
}

void QtPasteboard::setContent(const MimeContent& content) {
    auto* data = new QMimeData; // owned by the clipboard
    for (const auto& [type, bytes] : content.forms())
        data->setData(typeName(type), QByteArray::fromStdString(bytes));
    QGuiApplication::clipboard()->setMimeData(data);
}

} // namespace tabulon
