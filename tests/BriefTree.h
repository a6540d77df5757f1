// A small tree as one line: "name=url" for links, "-" for separators, "name[…]" for folders.
#pragma once

#include "model/Bookmark.h"

#include <string>

namespace tabulon {

/// What is in the folder, with spaces between.
inline std::string briefly(const Bookmark& folder) {
    std::string text;
    if (const ChildList* children = folder.getChildren())
        for (const Bookmark* child : *children) {
            text += text.empty() ? "" : " ";
            if (child->isSeparator())
                text += "-";
            else if (child->isFolder())
                text += child->itemName().string() + "[" + briefly(*child) + "]";
            else
                text += child->itemName().string() + "=" + child->itemURL().string();
        }
    return text;
}

} // namespace tabulon
