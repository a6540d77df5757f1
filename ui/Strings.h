// Texts and colours of the model as Qt has them.
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

inline QString toQString(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

/// For a line on the screen: at most a few thousand bytes, line breaks and tabs as spaces.
QString oneLine(std::string_view utf8);

/// As much of that as can be seen in `width` pixels, and an ellipsis if that is not all: texts far too long
/// for their room cost no more time than others.
QString oneLine(std::string_view utf8, int width);

/// A title of a menu item, a button or the like, with a mark before its first letter that no other title
/// beside it has taken; that letter is taken then. Titles hold no markup: an ampersand is shown.
QString withMnemonic(std::string_view title, QSet<QChar>& taken);

/// For a tool tip: the text as it is, never as markup, wrapped where it has long lines; empty for an empty
/// text.
QString toolTipText(std::string_view utf8);

/// The colour of a label as it can be read on `base`: itself on light ground; lightened as far as it takes on
/// dark, and black, which stands for no colour, is `text`.
QColor readableColor(const LabelColor& color, const QColor& base, const QColor& text);

/// A ground for a text in the colour of a label that would be lost on the light ground `base`; nothing where
/// the colour is seen there.
std::optional<QColor> groundForLabel(const LabelColor& color, const QColor& base);

/// The place of a window as it is kept from run to run: left, top, width and height in pixels.
std::string frameText(const QRect& frame);
/// None for a text that is no such place.
std::optional<QRect> frameIn(const std::string& text);

/// Between the two: 0 is `from`, 1 is `to`.
QColor mixedColor(const QColor& from, const QColor& to, double amount);

} // namespace tabulon
