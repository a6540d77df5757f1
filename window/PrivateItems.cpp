#include "window/PrivateItems.h"

#include "base/LittleEndian.h"

#include <cstddef>

namespace tabulon {
namespace {

// The private form: the token of the process, then counts and lengths of four bytes, low byte first.

void appendBytes(std::string& bytes, std::string_view part) {
    appendNumber(bytes, part.size());
    bytes += part;
}

class PrivateReader {
public:
    explicit PrivateReader(std::string_view bytes) : reader_(bytes) {}

    // Returns an empty list if the bytes end too early.
    std::vector<PasteboardItem> items() {
        std::vector<PasteboardItem> items;
        for (std::size_t count = reader_.number(); reader_.isWhole() && count > 0; --count) {
            PasteboardItem item;
            for (std::size_t values = reader_.number(); reader_.isWhole() && values > 0; --values) {
                const std::string_view type = bytes();
                item.set(type, std::string(bytes()));
            }
            items.push_back(std::move(item));
        }
        return reader_.isWhole() ? items : std::vector<PasteboardItem>();
    }

private:
    std::string_view bytes() { return reader_.take(reader_.number()); }

    LittleEndianReader reader_;
};

} // namespace

std::string privateForm(const std::vector<PasteboardItem>& items, const std::string& token) {
    std::string bytes = token;
    appendNumber(bytes, items.size());
    for (const PasteboardItem& item : items) {
        appendNumber(bytes, item.values().size());
        for (const auto& [type, value] : item.values()) {
            appendBytes(bytes, type);
            appendBytes(bytes, value);
        }
    }
    return bytes;
}

std::vector<PasteboardItem> itemsOfPrivateForm(std::string_view bytes) {
    return PrivateReader(bytes).items();
}

} // namespace tabulon
