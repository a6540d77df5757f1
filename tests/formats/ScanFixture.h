// A fixture for the tests of the tag scanner: a scanner, services with a fixed time, and the tree as text.
#pragma once

#include "formats/import/NetscapeScanner.h"
#include "platform/fake/FakeBaseServices.h"
#include "tests/formats/TreeText.h"

#include <gtest/gtest.h>

namespace tabulon::test {

class ScanFixture : public testing::Test {
protected:
    Ref<Bookmark> scan(std::string_view bytes) { return scanner.scan(bytes, fakes.services()); }
    /// Returns the tree of `bytes` as text, with all values that `treeText` writes.
    std::string scanText(std::string_view bytes) { return textOf(*scan(bytes)); }
    std::string textOf(const Bookmark& root) { return treeText(treeLines(root), fakes.now().unixSeconds()); }
    /// Returns the first node found. Fails the test if the tree is empty.
    Ref<Bookmark> scanFirst(std::string_view bytes) {
        const Ref<Bookmark> root = scan(bytes);
        if (root->hasChildren())
            return Ref<Bookmark>(root->getChild());
        ADD_FAILURE() << "nothing found in " << bytes;
        return Bookmark::initEmpty();
    }
    /// Returns the name of the first node found. Fails the test if the tree is empty.
    std::string nameOfFirst(std::string_view bytes) { return scanFirst(bytes)->itemName().string(); }
    /// Returns the number of children of `root`.
    static std::size_t count(const Bookmark& root) {
        return root.getChildren() ? root.getChildren()->size() : 0;
    }

    FakeBaseServices fakes;
    NetscapeScanner scanner;
};

} // namespace tabulon::test
