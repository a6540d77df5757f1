// The program's own images by name, drawn for 16 points and sharp at every size.
#pragma once

#include <QIcon>

#include <string_view>

namespace tabulon {

/// The image of resources/icons with this name; a null icon for an empty name.
QIcon iconNamed(std::string_view name);

} // namespace tabulon
