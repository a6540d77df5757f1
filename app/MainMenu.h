// The menus of the menu bar as values. Each is built when it is opened; ui/ draws it, and ResponderChain runs
// its items.
#pragma once

#include "platform/Platform.h"
#include "window/Menu.h"

#include <cstddef>
#include <string>
#include <vector>

namespace tabulon {

class DocumentController;

/// The content of the menu bar. A menu is identified by its place in the bar, from 0 on.
class MainMenu {
public:
    /// Requires: `documents` and the services of `platform` outlive this object.
    MainMenu(const Platform& platform, DocumentController& documents)
        : platform_(platform), documents_(documents) {}

    /// Returns the number of menus in the bar.
    static std::size_t count();

    /// Returns the title of a menu. Requires: `place < count()`.
    std::string title(std::size_t place) const;

    /// Returns one menu as it is to be shown, with its submenus. The Open Recent list is read from the state
    /// file, and the Import menu looks for the browsers' files; the other menus do not read the disk.
    /// Requires: `place < count()`.
    Menu menu(std::size_t place) const;

    /// Returns the items of a menu that have a key equivalent. They are always the same, so that keys work
    /// before the menu is opened. The disk is not read. Requires: `place < count()`.
    std::vector<MenuItem> itemsWithKeys(std::size_t place) const;

private:
    const Platform platform_;
    DocumentController& documents_;
};

} // namespace tabulon
