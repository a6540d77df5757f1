#include "platform/linux/SystemServices.h"

#include "base/Date.h"
#include "platform/linux/Process.h"

#include <fmt/format.h>

#include <chrono>
#include <cstdlib>

namespace tabulon {

double SystemClock::secondsSinceReferenceDate() const {
    const auto sinceUnixEpoch = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration<double>(sinceUnixEpoch).count() - Date::kReferenceUnixSeconds;
}

void StandardErrorLog::log(std::string_view line) {
    writeStandardError(fmt::format("tabulon: {}\n", line));
}

std::string environmentLocale() {
    for (const char* variable : {"LC_ALL", "LC_COLLATE", "LANG"})
        if (const char* value = std::getenv(variable); value && *value)
            return value;
    return {};
}

} // namespace tabulon
