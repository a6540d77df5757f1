// Light or dark colours: as the command line says, or else the desktop's settings. The palette and the style
// of the application are set here; all drawing uses the palette.
#pragma once

#include <QDBusVariant>
#include <QObject>

#include <optional>

namespace tabulon {

/// The scheme that the user asks for; System follows the desktop.
enum class ColorScheme { System, Light, Dark };

/// Returns the scheme named "system", "light" or "dark"; `nullopt` for any other name.
std::optional<ColorScheme> colorSchemeNamed(const QString& name);

/// Sets the palette of the application, and the style Fusion with check boxes that can be seen on dark
/// windows. Where the platform's own theme has a palette (KDE, GTK), System changes neither. Elsewhere System
/// begins with light colours, requests the scheme from the desktop's settings portal without waiting for the
/// answer, and follows changes.
class Theme : public QObject {
    Q_OBJECT

public:
    /// Sets the colours of `scheme`. Requires: the application object exists, and outlives this object.
    explicit Theme(ColorScheme scheme);

private slots:
    /// Called when a setting of the desktop has changed.
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    /// Requests the desktop's colour scheme, and its later changes. Does nothing without a session bus.
    void askPortal();
    /// Sets the palette of the application.
    void apply(bool dark);
};

} // namespace tabulon
