// What every test of the tag scanner needs: a scanner, services that stand still, and the tree as text.
#pragma once

#include "formats/import/NetscapeScanner.h"
#include "platform/fake/FakeBaseServices.h"
#include "tests/formats/TreeText.h"

#include <gtest/gtest.h>

namespace tabulon::test {

class ScanFixture : public testing::Test {
protected:
    Ref<Bookmark> scan(std::string_view bytes) { return scanner.scan(bytes, fakes.services()); }
    /// The tree as text, with all that was read.
    std::string scanText(std::string_view bytes) { return textOf(*scan(bytes)); }
    std::string textOf(const Bookmark& root) { return treeText(treeLines(root), fakes.now().unixSeconds()); }
    /// The first thing found; the test fails when there is none.
    Ref<Bookmark> scanFirst(std::string_view bytes) {
        const Ref<Bookmark> root = scan(bytes);
        if (root->hasChildren())
            return Ref<Bookmark>(root->getChild());
        ADD_FAILURE() << "nothing found in " << bytes;
        return Bookmark::initEmpty();
    }
    std::string nameOfFirst(std::string_view bytes) { return scanFirst(bytes)->itemName().string(); }
    static std::size_t count(const Bookmark& root) {
        return root.getChildren() ? root.getChildren()->size() : 0;
    }

    FakeBaseServices fakes;
    NetscapeScanner scanner;
};

} // namespace tabulon::test
