// The program's own images by name. They are drawn for 16 points, and are sharp at every size.
#pragma once

#include "model/LinkType.h"

#include <QIcon>

#include <string_view>

namespace tabulon {

/// Returns the image of resources/icons with this name (UTF-8, without ".svg"), or a null icon for an empty
/// name.
QIcon iconNamed(std::string_view name);

/// Returns a disc in the colour of a label, with a rim that can be seen on every background. It is an image
/// of 64 pixels, which is scaled where it is shown.
QIcon labelSwatch(const LabelColor& color);

} // namespace tabulon
