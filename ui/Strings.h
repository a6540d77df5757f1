// Texts and colours of the model in the types of Qt.
#pragma once

#include "base/Text.h"
#include "model/LinkType.h"

#include <QColor>
#include <QRect>
#include <QSet>
#include <QString>

#include <optional>
#include <string>
#include <string_view>

namespace tabulon {

/// Returns the text. Invalid bytes are replaced.
inline QString toQString(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

/// Returns the first few thousand bytes of the text for a line on the screen, with a space for each line
/// break, tab and other control character.
QString oneLine(std::string_view utf8);

/// Returns as much of that as can be seen in `width` pixels, with an ellipsis if that is not all. The time
/// does not depend on the length of the text.
QString oneLine(std::string_view utf8, int width);

/// Returns a title for a menu item or button, with the mark of Qt before its first letter that is not in
/// `taken`, and adds that letter to `taken`. Ampersands of the title are escaped, so that they are shown.
QString withMnemonic(std::string_view title, QSet<QChar>& taken);

/// Returns the text for a tool tip: escaped, never interpreted as markup, wrapped if it has long lines. At
/// most a few thousand bytes are shown. Empty for an empty text.
QString toolTipText(std::string_view utf8);

/// Returns the colour of a label in a form that can be read on `base`: the colour itself on a light
/// background, lightened as far as needed on a dark one. For black, which means no colour, returns `text`.
QColor readableColor(const LabelColor& color, const QColor& base, const QColor& text);

/// Returns a dark background for a text in a label's colour that can hardly be seen on the light background
/// `base`; `nullopt` if no background is needed.
std::optional<QColor> groundForLabel(const LabelColor& color, const QColor& base);

/// Returns the place of a window as it is stored: left, top, width and height in pixels, separated by spaces.
std::string frameText(const QRect& frame);
/// Returns the place that such a text describes, or `nullopt` for any other text.
std::optional<QRect> frameIn(const std::string& text);

/// Returns a colour between the two: `from` for the amount 0, `to` for 1.
QColor mixedColor(const QColor& from, const QColor& to, double amount);

} // namespace tabulon
