// Content in several forms between Qt and the rest of the program.
#pragma once

#include "platform/Pasteboard.h"

#include <QMimeData>

#include <memory>
#include <span>

namespace tabulon {

/// Those of the forms that are there.
MimeContent mimeContentOf(const QMimeData& data, std::span<const std::string_view> types);

std::unique_ptr<QMimeData> makeMimeData(const MimeContent& content);

} // namespace tabulon
