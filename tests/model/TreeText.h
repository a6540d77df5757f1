// Trees for tests in a short notation. In "a B(c -) d", small letters are links, capital letters are folders
// with their children in parentheses, and "-" is a separator.
#pragma once

#include "model/Bookmark.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tabulon::test {

class LetterTree {
public:
    /// Builds the tree from the notation. Requires: each ")" ends a folder. Other characters are ignored.
    explicit LetterTree(std::string_view text) {
        root->setItemName("Master");
        root->makeParent();
        std::vector<Bookmark*> parents{root.get()};
        for (const char c : text) {
            if (c == ')')
                parents.pop_back();
            else if (c == '-')
                add(c, *parents.back()).setType(kSeparatorType);
            else if (c >= 'a' && c <= 'z')
                add(c, *parents.back());
            else if (c >= 'A' && c <= 'Z')
                parents.push_back(&addFolder(c, *parents.back()));
        }
    }

    /// Returns the last node named `name`. Throws `std::out_of_range` if there is no such node.
    Bookmark& operator[](char name) { return *named_.at(name); }

    /// Returns the current tree in the same notation. Links with children have parentheses, too.
    std::string text() const { return textBelow(*root); }

    Ref<Bookmark> root = Bookmark::initEmpty();

private:
    Bookmark& add(char name, Bookmark& parent) {
        const Ref<Bookmark> node = Bookmark::initEmpty();
        if (name != '-')
            node->setItemName(std::string(1, name));
        parent.addChild(node);
        named_[name] = node;
        return *node;
    }
    Bookmark& addFolder(char name, Bookmark& parent) {
        Bookmark& folder = add(name, parent);
        folder.makeParent();
        return folder;
    }
    static std::string textBelow(const Bookmark& parent) {
        std::string text;
        for (const Bookmark* child : *parent.getChildren()) {
            text += text.empty() ? "" : " ";
            text += child->isSeparator() ? "-" : child->itemName().string();
            if (child->hasChildren() || child->isFolder())
                text += "(" + textBelow(*child) + ")";
        }
        return text;
    }

    std::map<char, Ref<Bookmark>> named_;
};

} // namespace tabulon::test
