// Light or dark colours: as the command line says, or else the desktop's settings. Only the palette is set
// here; all drawing uses the palette.
#pragma once

#include <QDBusVariant>
#include <QObject>

#include <optional>

namespace tabulon {

/// The scheme that the user asks for; System follows the desktop.
enum class ColorScheme { System, Light, Dark };

/// Returns the scheme named "system", "light" or "dark"; `nullopt` for any other name.
std::optional<ColorScheme> colorSchemeNamed(const QString& name);

/// Sets the palette of the application. Where the platform's own theme has a palette (KDE, GTK), System keeps
/// it. Elsewhere System begins with light colours, asks the desktop's settings portal, without waiting for
/// the answer, and follows changes.
class Theme : public QObject {
    Q_OBJECT

public:
    /// Requires: the application object exists, and outlives this object.
    explicit Theme(ColorScheme scheme);

private slots:
    /// Called when a setting of the desktop has changed.
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    /// Requests the desktop's colour scheme, and its later changes.
    void askPortal();
    /// Sets the palette of the application.
    void apply(bool dark);
};

} // namespace tabulon
