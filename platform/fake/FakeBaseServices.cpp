#include "platform/fake/FakeBaseServices.h"

namespace tabulon {

std::optional<std::string> MemoryUserDefaults::stringForKey(std::string_view key) const {
    if (const auto found = values_.find(key); found != values_.end())
        return found->second;
    if (const auto registered = registeredDefault(key))
        return std::string(*registered);
    return std::nullopt;
}

void MemoryUserDefaults::setStringForKey(std::string_view key, std::string value) {
    values_.insert_or_assign(std::string(key), std::move(value));
}

void MemoryUserDefaults::removeKey(std::string_view key) {
    if (const auto found = values_.find(key); found != values_.end())
        values_.erase(found);
}

} // namespace tabulon
