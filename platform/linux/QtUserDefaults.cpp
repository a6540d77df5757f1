#include "platform/linux/QtUserDefaults.h"

#include <QStringList>
#include <QVariant>

namespace tabulon {
namespace {

QString keyName(std::string_view key) {
    return QString::fromUtf8(key.data(), static_cast<qsizetype>(key.size()));
}

} // namespace

std::optional<std::string> QtUserDefaults::stringForKey(std::string_view key) const {
    const QVariant value = settings_.value(keyName(key));
    if (value.isValid()) // a text with commas that a person typed comes as a list
        return value.toStringList().join(QStringLiteral(", ")).toStdString();
    if (const auto registered = registeredDefault(key))
        return std::string(*registered);
    return std::nullopt;
}

void QtUserDefaults::setStringForKey(std::string_view key, std::string value) {
    settings_.setValue(keyName(key), QString::fromStdString(value));
}

void QtUserDefaults::removeKey(std::string_view key) {
    settings_.remove(keyName(key));
}

} // namespace tabulon
