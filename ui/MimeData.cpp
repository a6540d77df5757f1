#include "ui/MimeData.h"

#include "ui/Strings.h"

namespace tabulon {

MimeContent mimeContentOf(const QMimeData& data, std::span<const std::string_view> types) {
    MimeContent content;
    for (const std::string_view type : types)
        if (const QString name = toQString(type); data.hasFormat(name))
            content.set(type, data.data(name).toStdString());
    return content;
}

Qt::DropAction actionThatKeepsTheSource(const QDropEvent& event) {
    for (const Qt::DropAction action : {Qt::CopyAction, Qt::LinkAction})
        if (event.possibleActions().testFlag(action))
            return action;
    return Qt::IgnoreAction;
}

std::unique_ptr<QMimeData> makeMimeData(const MimeContent& content) {
    auto data = std::make_unique<QMimeData>();
    for (const auto& [type, bytes] : content.forms())
        data->setData(toQString(type), QByteArray::fromStdString(bytes));
    return data;
}

} // namespace tabulon
