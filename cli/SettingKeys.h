// The keys of settings that the command line accepts.
#pragma once

#include <string_view>

namespace tabulon::cli {

/// Returns whether a setting has this key. The comparison is exact.
bool isSettingKey(std::string_view key);

} // namespace tabulon::cli
