#include "formats/import/ChromiumEntries.h"

#include "base/LittleEndian.h"
#include "formats/ChromiumEntriesLayout.h"

#include <unicode/unistr.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace tabulon {
namespace {

class Reader {
public:
    Reader(std::string_view bytes, Date now) : reader_(bytes), now_(now) {}

    Ref<Bookmark> tree() {
        if (reader_.number() > reader_.size())
            return nullptr;
        bytes(); // the profile
        Ref<Bookmark> root = Bookmark::init(now_);
        root->makeParent();
        std::vector<Level> levels = {{root.get(), reader_.number()}};
        while (reader_.isWhole() && !levels.empty()) {
            if (levels.back().missing == 0) {
                levels.pop_back();
                continue;
            }
            --levels.back().missing;
            Ref<Bookmark> node = entry();
            Bookmark* const folder = node->isFolder() ? node.get() : nullptr;
            levels.back().folder->addChild(std::move(node));
            if (folder)
                levels.push_back({folder, reader_.number()});
        }
        return reader_.isWhole() ? root : nullptr;
    }

private:
    struct Level {
        Bookmark* folder;
        std::size_t missing; // the number of its entries that follow
    };

    std::string_view takeFilledUp(std::size_t size) {
        const std::string_view part = reader_.take(size);
        reader_.take((kChromiumEntryUnit - size % kChromiumEntryUnit) % kChromiumEntryUnit);
        return part;
    }
    std::string_view bytes() { return takeFilledUp(reader_.number()); }
    std::string utf16() {
        const std::string_view units = takeFilledUp(reader_.number() * 2);
        icu::UnicodeString text;
        for (std::size_t i = 0; i + 1 < units.size(); i += 2)
            text.append(static_cast<char16_t>(static_cast<unsigned char>(units[i]) |
                                              static_cast<unsigned char>(units[i + 1]) << 8));
        std::string utf8;
        return text.toUTF8String(utf8);
    }

    Ref<Bookmark> entry() {
        Ref<Bookmark> node = Bookmark::init(now_);
        const bool isLink = reader_.number() != 0;
        const std::string_view url = bytes();
        node->setItemName(utf16());
        if (isLink)
            node->setItemURL(Text::fromBytes(url));
        else
            node->makeParent();
        reader_.take(kChromiumIdentifierSize);
        for (std::size_t remarks = reader_.number(); reader_.isWhole() && remarks > 0; --remarks) {
            bytes();
            bytes();
        }
        return node;
    }

    LittleEndianReader reader_;
    const Date now_;
};

} // namespace

Ref<Bookmark> readChromiumEntries(std::string_view bytes, Date now) {
    return Reader(bytes, now).tree();
}

} // namespace tabulon
