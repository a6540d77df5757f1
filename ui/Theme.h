// Light or dark: what the user asked for on the command line, else what the desktop says. Only the palette is
// set here; everything that draws goes by the palette.
#pragma once

#include <QDBusVariant>
#include <QObject>

#include <optional>

namespace tabulon {

enum class ColorScheme { System, Light, Dark };

/// Nothing for a name other than "system", "light" and "dark".
std::optional<ColorScheme> colorSchemeNamed(const QString& name);

/// Where the platform's own theme gives a palette (KDE, GTK), System keeps it. Elsewhere it asks the
/// desktop's settings portal, without waiting for the answer, and follows changes.
class Theme : public QObject {
    Q_OBJECT

public:
    /// Needs the application object, and must go before it.
    explicit Theme(ColorScheme scheme);

private slots:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void askPortal();
    void apply(bool dark);
};

} // namespace tabulon
