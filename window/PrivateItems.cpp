#include "window/PrivateItems.h"

#include <cstddef>

namespace tabulon {
namespace {

// The private form: the token of the process, then counts and lengths of four bytes, low byte first.

void appendNumber(std::string& bytes, std::size_t number) {
    for (int shift = 0; shift < 32; shift += 8)
        bytes += static_cast<char>(number >> shift & 0xFF);
}

void appendBytes(std::string& bytes, std::string_view part) {
    appendNumber(bytes, part.size());
    bytes += part;
}

class PrivateReader {
public:
    explicit PrivateReader(std::string_view rest) : rest_(rest) {}

    /// None where the bytes are not whole.
    std::vector<PasteboardItem> items() {
        std::vector<PasteboardItem> items;
        for (std::size_t count = number(); whole_ && count > 0; --count) {
            PasteboardItem item;
            for (std::size_t values = number(); whole_ && values > 0; --values) {
                const std::string_view type = bytes();
                item.set(type, std::string(bytes()));
            }
            items.push_back(std::move(item));
        }
        return whole_ ? items : std::vector<PasteboardItem>();
    }

private:
    std::string_view take(std::size_t size) {
        whole_ = whole_ && size <= rest_.size();
        const std::string_view part = whole_ ? rest_.substr(0, size) : std::string_view();
        rest_.remove_prefix(part.size());
        return part;
    }
    std::size_t number() {
        std::size_t number = 0;
        int shift = 0;
        for (const char byte : take(4)) {
            number |= std::size_t{static_cast<unsigned char>(byte)} << shift;
            shift += 8;
        }
        return number;
    }
    std::string_view bytes() { return take(number()); }

    std::string_view rest_;
    bool whole_ = true;
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
