#include "formats/import/ChromiumEntries.h"

#include <unicode/unistr.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace tabulon {
namespace {

constexpr std::size_t kUnit = 4;
constexpr std::size_t kIdentifier = 8;

class Reader {
public:
    Reader(std::string_view rest, Date now) : rest_(rest), now_(now) {}

    Ref<Bookmark> tree() {
        if (number() > rest_.size())
            return nullptr;
        bytes(); // the profile
        Ref<Bookmark> root = Bookmark::init(now_);
        root->makeParent();
        std::vector<Level> levels = {{root.get(), number()}};
        while (whole_ && !levels.empty()) {
            if (levels.back().missing == 0) {
                levels.pop_back();
                continue;
            }
            --levels.back().missing;
            Ref<Bookmark> node = entry();
            Bookmark* const folder = node->isFolder() ? node.get() : nullptr;
            levels.back().folder->addChild(std::move(node));
            if (folder)
                levels.push_back({folder, number()});
        }
        return whole_ ? root : nullptr;
    }

private:
    struct Level {
        Bookmark* folder;
        std::size_t missing; // of what is in it
    };

    std::string_view take(std::size_t size) {
        whole_ = whole_ && size <= rest_.size();
        const std::string_view part = whole_ ? rest_.substr(0, size) : std::string_view();
        rest_.remove_prefix(part.size());
        return part;
    }
    std::string_view takeFilledUp(std::size_t size) {
        const std::string_view part = take(size);
        take((kUnit - size % kUnit) % kUnit);
        return part;
    }
    std::size_t number() {
        std::size_t number = 0;
        int shift = 0;
        for (const char byte : take(kUnit)) {
            number |= std::size_t{static_cast<unsigned char>(byte)} << shift;
            shift += 8;
        }
        return number;
    }
    std::string_view bytes() { return takeFilledUp(number()); }
    std::string utf16() {
        const std::string_view units = takeFilledUp(number() * 2);
        icu::UnicodeString text;
        for (std::size_t i = 0; i + 1 < units.size(); i += 2)
            text.append(static_cast<char16_t>(static_cast<unsigned char>(units[i]) |
                                              static_cast<unsigned char>(units[i + 1]) << 8));
        std::string utf8;
        return text.toUTF8String(utf8);
    }

    Ref<Bookmark> entry() {
        Ref<Bookmark> node = Bookmark::init(now_);
        const bool isLink = number() != 0;
        const std::string_view url = bytes();
        node->setItemName(utf16());
        if (isLink)
            node->setItemURL(Text::fromBytes(url));
        else
            node->makeParent();
        take(kIdentifier);
        for (std::size_t remarks = number(); whole_ && remarks > 0; --remarks) {
            bytes();
            bytes();
        }
        return node;
    }

    std::string_view rest_;
    const Date now_;
    bool whole_ = true;
};

} // namespace

Ref<Bookmark> readChromiumEntries(std::string_view bytes, Date now) {
    return Reader(bytes, now).tree();
}

} // namespace tabulon
