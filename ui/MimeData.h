// Content in several media types, between Qt and the rest of the program.
#pragma once

#include "platform/Pasteboard.h"

#include <QDropEvent>
#include <QMimeData>

#include <memory>
#include <span>

namespace tabulon {

/// Returns a copy of the data in those of these types that it has.
MimeContent mimeContentOf(const QMimeData& data, std::span<const std::string_view> types);

/// Returns how a drag of another program is accepted: copied, or else linked to; IgnoreAction if it offers
/// neither. Moving is not accepted, because the other program would delete its data.
Qt::DropAction actionThatKeepsTheSource(const QDropEvent& event);

/// Returns the content as data for Qt.
std::unique_ptr<QMimeData> makeMimeData(const MimeContent& content);

} // namespace tabulon
