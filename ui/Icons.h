// The program's own images by name, drawn for 16 points and sharp at every size.
#pragma once

#include "model/LinkType.h"

#include <QIcon>

#include <string_view>

namespace tabulon {

/// The image of resources/icons with this name; a null icon for an empty name.
QIcon iconNamed(std::string_view name);

/// A disc in the colour of a label, with a rim that shows on any ground.
QIcon labelSwatch(const LabelColor& color);

} // namespace tabulon
