#include "formats/import/NestedLinks.h"

#include "base/Text.h"
#include "html/HtmlTreeBuilder.h"

#include <algorithm>
#include <string>
#include <vector>

namespace tabulon {
namespace {

using html::Node;
using html::Tag;

class NestedLinksWalk {
public:
    explicit NestedLinksWalk(Date now) : now_(now), root_(newFolder()) {}

    Ref<Bookmark> run(const Node& document) {
        folders_.push_back({root_.get(), true});
        for (const Node* node = &document; node; node = next(*node))
            enter(*node);
        return root_;
    }

private:
    struct Folder {
        Bookmark* node;
        bool isNamed;
    };

    Ref<Bookmark> newFolder() const {
        Ref<Bookmark> folder = Bookmark::init(now_);
        folder->makeParent();
        return folder;
    }

    void enter(const Node& node) {
        if (node.kind == Node::Kind::Text) {
            text_ += node.text;
        } else if (node.isHtml(Tag::Dl)) {
            Ref<Bookmark> folder = newFolder();
            Bookmark& list = *folders_.back().node;
            folders_.push_back({folder.get(), false});
            list.addChild(std::move(folder));
        } else if (node.isHtml(Tag::Hr)) {
            Ref<Bookmark> separator = Bookmark::init(now_);
            separator->setType(kSeparatorType);
            folders_.back().node->addChild(std::move(separator));
        } else if (node.isHtml(Tag::Dt) || isLink(node)) {
            text_.clear();
        }
    }

    void leave(const Node& node) {
        Folder& folder = folders_.back();
        if (node.isHtml(Tag::Dl)) {
            folders_.pop_back();
        } else if (node.isHtml(Tag::Dt) && !folder.isNamed) {
            folder.node->setItemName(Text::fromBytes(text_));
            folder.isNamed = true;
        } else if (isLink(node)) {
            Ref<Bookmark> link = Bookmark::init(now_);
            link->setItemName(Text::fromBytes(text_));
            link->setItemURL(Text::fromBytes(node.link->href));
            link->determineType();
            folder.node->addChild(std::move(link));
            text_.clear();
        }
    }

    static bool isLink(const Node& node) { return node.link && node.isHtml(Tag::A); }

    const Node* next(const Node& node) {
        if (node.first && !node.isHtml(Tag::Template))
            return node.first;
        for (const Node* left = &node; left; left = left->parent) {
            leave(*left);
            if (left->next)
                return left->next;
        }
        return nullptr;
    }

    const Date now_;
    const Ref<Bookmark> root_;
    std::vector<Folder> folders_;
    std::string text_; // since the last link or "dt" began, or the last link ended
};

} // namespace

Result<Ref<Bookmark>> readNestedLinks(std::string_view html, Date now) {
    std::string source = Text::fromBytes(html).string();
    std::erase(source, '\r');
    html::Tree tree;
    if (html::buildTree(source, tree) != html::BuildOutcome::Whole)
        return failure("The tags of the page are too entangled to be read.");
    return NestedLinksWalk(now).run(tree.document());
}

} // namespace tabulon
