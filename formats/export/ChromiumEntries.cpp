#include "formats/export/ChromiumEntries.h"

#include "base/LittleEndian.h"
#include "formats/ChromiumEntriesLayout.h"
#include "model/TreeWalk.h"
#include "text/UriScheme.h"

#include <string_view>

namespace tabulon {
namespace {

constexpr int kDeepest = 200;

bool isCopied(const Bookmark& node) {
    return node.isFolder() || (!node.isSeparator() && schemeLength(node.itemURL().view()) > 0);
}

class Writer {
public:
    explicit Writer(std::size_t most) : most_(most) {}

    std::string write(const Bookmark& root) {
        appendText({}); // no profile: the browser copies and does not move
        const std::size_t entries = appendNumberOfEntries(root);
        int depth = 0;
        walkBelow(
            root,
            [&](const Bookmark& node) {
                fits_ = fits_ && bytes_.size() <= most_ && depth <= kDeepest;
                if (!fits_ || !isCopied(node))
                    return false;
                appendEntry(node);
                depth += node.isFolder() ? 1 : 0;
                return node.isFolder();
            },
            [&](const Bookmark&) { --depth; });
        if (!fits_ || entries == 0 || bytes_.size() > most_)
            return {};
        std::string whole;
        appendNumber(whole, bytes_.size());
        return whole += bytes_;
    }

private:
    void fillUp() {
        bytes_.append((kChromiumEntryUnit - bytes_.size() % kChromiumEntryUnit) % kChromiumEntryUnit, '\0');
    }

    void appendText(std::string_view utf8) {
        appendNumber(bytes_, utf8.size());
        bytes_ += utf8;
        fillUp();
    }

    void appendTitle(std::string_view utf8) {
        std::string units;
        appendUtf16(units, utf8);
        appendNumber(bytes_, units.size() / 2);
        bytes_ += units;
        fillUp();
    }

    std::size_t appendNumberOfEntries(const Bookmark& folder) {
        const ChildList* children = folder.getChildren();
        const auto entries = children ? static_cast<std::size_t>(std::count_if(
                                            children->begin(), children->end(),
                                            [](const Bookmark* child) { return isCopied(*child); }))
                                      : 0;
        appendNumber(bytes_, entries);
        return entries;
    }

    void appendEntry(const Bookmark& node) {
        appendNumber(bytes_, node.isFolder() ? 0 : 1);
        appendText(node.isFolder() ? std::string_view() : node.itemURL().view());
        appendTitle(node.itemName().view());
        bytes_.append(kChromiumIdentifierSize, '\0');
        appendNumber(bytes_, 0); // no remarks
        if (node.isFolder())
            appendNumberOfEntries(node);
    }

    const std::size_t most_;
    std::string bytes_;
    bool fits_ = true;
};

} // namespace

std::string exportToChromiumEntries(const Bookmark& root, std::size_t most) {
    return Writer(most).write(root);
}

} // namespace tabulon
