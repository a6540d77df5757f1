// The program's own images by name. They are drawn for 16 points, and are sharp at every size.
#pragma once

#include "model/LinkType.h"

#include <QIcon>

#include <string_view>

namespace tabulon {

/// Returns the image of resources/icons with this name, or a null icon for an empty name.
QIcon iconNamed(std::string_view name);

/// Returns a disc in the colour of a label, with a rim that can be seen on every background.
QIcon labelSwatch(const LabelColor& color);

} // namespace tabulon
