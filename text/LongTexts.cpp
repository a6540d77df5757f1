#include "text/LongTexts.h"

#include <functional>

namespace tabulon {

std::uint32_t LongTexts::numberOf(const Text& text) {
    const auto [known, isNew] = numbers_.try_emplace(text.view().data());
    if (isNew) {
        const auto next = static_cast<std::uint32_t>(numbersOfContent_.size());
        known->second = numbersOfContent_.try_emplace(text.view(), next).first->second;
    }
    return known->second;
}

bool LongTexts::areEqual(const Text& a, const Text& b) {
    const std::size_t size = a.view().size();
    if (size < kLong || size != b.view().size() || a.sharesBytesWith(b))
        return a == b;
    return numberOf(a) == numberOf(b);
}

std::size_t LongTexts::hash(const Text& text) {
    return text.view().size() < kLong ? std::hash<std::string_view>()(text.view()) : numberOf(text);
}

} // namespace tabulon
