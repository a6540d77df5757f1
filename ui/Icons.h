// The images of the program and of the desktop by name. The program's own ones are drawn for 16 points, and
// are sharp at every size.
#pragma once

#include "model/LinkType.h"

#include <QIcon>

#include <string_view>

namespace tabulon {

/// Returns the image of resources/icons with this name (UTF-8, without ".svg"), or the icon of an application
/// if there is none. Returns a null icon for an empty name.
QIcon iconNamed(std::string_view name);

/// Returns the icon of an application: of the desktop's theme by its name, or from the file at an absolute
/// path. It may be null.
QIcon applicationIcon(std::string_view name);

/// Returns a disc in the colour of a label, with a rim that can be seen on every background. It is an image
/// of 64 pixels, which is scaled where it is shown.
QIcon labelSwatch(const LabelColor& color);

} // namespace tabulon
