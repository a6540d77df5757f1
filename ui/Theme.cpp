#include "ui/Theme.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QFile>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleOption>

namespace tabulon {
namespace {

constexpr auto kPortal = "org.freedesktop.portal.Desktop";
constexpr auto kPortalPath = "/org/freedesktop/portal/desktop";
constexpr auto kSettings = "org.freedesktop.portal.Settings";
constexpr auto kAppearance = "org.freedesktop.appearance";
constexpr auto kColorScheme = "color-scheme";
constexpr uint kPrefersDark = 1;

// Disabled texts have the colour `faint`.
void setTextColors(QPalette& palette, const QColor& text, const QColor& faint) {
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, faint);
    }
    palette.setColor(QPalette::PlaceholderText, faint);
}

QPalette lightPalette() {
    QPalette palette(QColor(0xf2, 0xf3, 0xf4));
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, QColor(0xf7, 0xf8, 0xf9));
    setTextColors(palette, QColor(0x23, 0x26, 0x29), QColor(0x9a, 0x9e, 0xa3));
    palette.setColor(QPalette::Highlight, QColor(0x2f, 0x7b, 0xd1));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0x1d, 0x67, 0xbd));
    palette.setColor(QPalette::Inactive, QPalette::Highlight, QColor(0xcf, 0xd6, 0xde));
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText, QColor(0x23, 0x26, 0x29));
    return palette;
}

QPalette darkPalette() {
    const QColor window(0x2a, 0x2d, 0x31);
    const QColor text(0xe6, 0xe8, 0xea);
    QPalette palette(window);
    palette.setColor(QPalette::Base, QColor(0x1f, 0x22, 0x25));
    palette.setColor(QPalette::AlternateBase, QColor(0x25, 0x28, 0x2c));
    palette.setColor(QPalette::Button, QColor(0x35, 0x39, 0x3e));
    palette.setColor(QPalette::ToolTipBase, QColor(0x3a, 0x3e, 0x44));
    setTextColors(palette, text, QColor(0x80, 0x86, 0x8d));
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::Highlight, QColor(0x2f, 0x72, 0xbf));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0x6d, 0xb3, 0xf2));
    palette.setColor(QPalette::Inactive, QPalette::Highlight, QColor(0x3d, 0x46, 0x50));
    return palette;
}

// Draws visible frames of check boxes and radio buttons on dark windows: Fusion draws them in a shade that is
// darker than the window.
class VisibleBoxes : public QProxyStyle {
public:
    VisibleBoxes() : QProxyStyle("fusion") {}

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        const bool isBox = element == PE_IndicatorCheckBox || element == PE_IndicatorRadioButton;
        constexpr int kDark = 128; // of 255
        if (!isBox || option->palette.color(QPalette::Window).lightness() >= kDark)
            return;
        QColor frame = option->palette.color(QPalette::WindowText);
        frame.setAlphaF(0.55F);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(frame);
        const QRectF place = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
        if (element == PE_IndicatorCheckBox)
            painter->drawRoundedRect(place, 2, 2);
        else
            painter->drawEllipse(place);
        painter->restore();
    }
};

// Returns whether the platform's theme sets the palette. Without one Qt uses Fusion and its fixed palette.
bool platformHasPalette() {
    return !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORMTHEME") || QApplication::style()->name() != "fusion";
}

// Returns whether there is a session bus. Connecting without one would start a bus, and leave it running.
bool hasSessionBus() {
    return !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS") ||
           QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + "/bus");
}

} // namespace

std::optional<ColorScheme> colorSchemeNamed(const QString& name) {
    if (name == "system")
        return ColorScheme::System;
    if (name == "light")
        return ColorScheme::Light;
    if (name == "dark")
        return ColorScheme::Dark;
    return std::nullopt;
}

Theme::Theme(ColorScheme scheme) {
    if (scheme != ColorScheme::System) {
        QApplication::setStyle(new VisibleBoxes);
        apply(scheme == ColorScheme::Dark);
    } else if (!platformHasPalette()) {
        QApplication::setStyle(new VisibleBoxes);
        apply(false);
        askPortal();
    }
}

void Theme::apply(bool dark) {
    QApplication::setPalette(dark ? darkPalette() : lightPalette());
}

void Theme::askPortal() {
    if (!hasSessionBus())
        return;
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    bus.connect(kPortal, kPortalPath, kSettings, "SettingChanged", this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    QDBusMessage read = QDBusMessage::createMethodCall(kPortal, kPortalPath, kSettings, "Read");
    read << QString(kAppearance) << QString(kColorScheme);
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(read), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<QDBusVariant> reply = *watcher;
        if (reply.isValid()) // the value is a variant in a variant
            apply(reply.value().variant().value<QDBusVariant>().variant().toUInt() == kPrefersDark);
        watcher->deleteLater();
    });
}

void Theme::settingChanged(const QString& group, const QString& key, const QDBusVariant& value) {
    if (group == kAppearance && key == kColorScheme)
        apply(value.variant().toUInt() == kPrefersDark);
}

} // namespace tabulon
