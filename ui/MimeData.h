// Content in several media types, between Qt and the rest of the program.
#pragma once

#include "platform/Pasteboard.h"

#include <QDropEvent>
#include <QMimeData>

#include <memory>
#include <span>

namespace tabulon {

/// Returns a copy of the bytes of `data` for each of `types` that it has. Empty if it has none of them.
/// `types` are the names of media types.
MimeContent mimeContentOf(const QMimeData& data, std::span<const std::string_view> types);

/// Returns how a drag of another program is accepted: copied, or else linked to; IgnoreAction if it offers
/// neither. Moving is not accepted, because the other program would delete its data.
Qt::DropAction actionThatKeepsTheSource(const QDropEvent& event);

/// Returns a copy of the content as data for Qt, never `nullptr`. Bytes are unchanged.
std::unique_ptr<QMimeData> makeMimeData(const MimeContent& content);

} // namespace tabulon
