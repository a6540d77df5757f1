// A fixture for export tests that builds trees.
#pragma once

#include "model/Bookmark.h"

#include <gtest/gtest.h>

namespace tabulon {

class TreeTest : public testing::Test {
protected:
    TreeTest() {
        master->makeParent();
        master->setItemName("Master");
    }

    // The nodes have no dates unless a test sets them.
    /// Adds `child` as the last child of `parent` and returns it.
    static Bookmark& add(Bookmark& parent, Ref<Bookmark> child) {
        parent.addChild(child);
        return *child;
    }
    static Bookmark& addLink(Bookmark& parent, Text name, Text url, Text note = nullptr,
                             Text tags = nullptr) {
        Ref<Bookmark> link = Bookmark::initEmpty();
        link->setItemName(std::move(name));
        link->setItemURL(std::move(url));
        link->setItemNote(std::move(note));
        link->setItemTags(std::move(tags));
        return add(parent, std::move(link));
    }
    static Bookmark& addFolder(Bookmark& parent, Text name, Text note = nullptr) {
        Ref<Bookmark> folder = Bookmark::initEmpty();
        folder->makeParent();
        folder->setItemName(std::move(name));
        folder->setItemNote(std::move(note));
        return add(parent, std::move(folder));
    }
    static Bookmark& addSeparator(Bookmark& parent) {
        Ref<Bookmark> separator = Bookmark::initEmpty();
        separator->setType(kSeparatorType);
        return add(parent, std::move(separator));
    }
    /// Adds a chain of `depth` folders below the master and returns the innermost folder, or the master if
    /// `depth` is 0.
    Bookmark& nest(int depth) {
        Bookmark* folder = master.get();
        for (int i = 0; i < depth; ++i)
            folder = &addFolder(*folder, "f");
        return *folder;
    }

    Ref<Bookmark> master = Bookmark::initEmpty();
};

} // namespace tabulon
