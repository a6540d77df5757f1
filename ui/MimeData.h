// Content in several forms between Qt and the rest of the program.
#pragma once

#include "platform/Pasteboard.h"

#include <QDropEvent>
#include <QMimeData>

#include <memory>
#include <span>

namespace tabulon {

/// Those of the forms that are there.
MimeContent mimeContentOf(const QMimeData& data, std::span<const std::string_view> types);

/// How to take what another program drags: copied or linked to. Whoever offers it to be moved would delete it
/// then; IgnoreAction where it offers nothing else.
Qt::DropAction actionThatKeepsTheSource(const QDropEvent& event);

std::unique_ptr<QMimeData> makeMimeData(const MimeContent& content);

} // namespace tabulon
