// Settings in an INI file.
#pragma once

#include "platform/UserDefaults.h"

#include <QSettings>

namespace tabulon {

/// Every change is written to the file by the main loop soon after it, and at the end. Values that other
/// running programs wrote to the same file are kept.
class QtUserDefaults : public UserDefaults {
public:
    /// `path` is made with its folder on the first write.
    explicit QtUserDefaults(const QString& path) : settings_(path, QSettings::IniFormat) {}

    std::optional<std::string> stringForKey(std::string_view key) const override;
    void setStringForKey(std::string_view key, std::string value) override;
    void removeKey(std::string_view key) override;

private:
    QSettings settings_;
};

} // namespace tabulon
