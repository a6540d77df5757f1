// The keys of settings that the command line accepts.
#pragma once

#include <string_view>

namespace tabulon::cli {

/// Returns whether a setting has this key. The comparison is exact. The keys are those of base/Settings.h,
/// with a registered value or without, and a few whose settings are stored but not used yet. Linear in the
/// number of keys.
bool isSettingKey(std::string_view key);

} // namespace tabulon::cli
