#include "ui/Strings.h"

#include "base/Utf8.h"

#include <algorithm>
#include <cmath>
#include <sstream>

namespace tabulon {
namespace {

constexpr std::size_t kLongestLine = 4000;
constexpr qsizetype kShortLine = 60;
constexpr std::size_t kSmallestRoom = 64;
constexpr double kWantedContrast = 5.0;
constexpr double kLostContrast = 2.0;
constexpr double kLightGround = 0.4;
constexpr QRgb kDarkGround = 0xff31363b;

double linear(double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& a, const QColor& b) {
    const double first = luminance(a) + 0.05;
    const double second = luminance(b) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

QColor toQColor(const LabelColor& color) {
    return QColor::fromRgbF(static_cast<float>(color.red), static_cast<float>(color.green),
                            static_cast<float>(color.blue), static_cast<float>(color.alpha));
}

} // namespace

QString oneLine(std::string_view utf8) {
    QString line = toQString(utf8.substr(0, kLongestLine));
    for (QChar& c : line)
        if (c.isSpace() || c.category() == QChar::Other_Control)
            c = ' ';
    return line;
}

QString oneLine(std::string_view utf8, int width) {
    // A letter is at least one pixel wide for each of its bytes.
    const std::size_t room = kSmallestRoom + static_cast<std::size_t>(std::max(width, 0));
    if (utf8.size() <= room)
        return oneLine(utf8);
    return oneLine(utf8::prefix(utf8, room)) + QChar(0x2026);
}

QString withMnemonic(std::string_view title, QSet<QChar>& taken) {
    QString text = toQString(title).replace('&', "&&");
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar letter = text[i].toLower();
        if (!letter.isLetter() || taken.contains(letter))
            continue;
        taken.insert(letter);
        return text.insert(i, '&');
    }
    return text;
}

QString toolTipText(std::string_view utf8) {
    if (utf8.empty())
        return {};
    const QString text = toQString(utf8.substr(0, kLongestLine));
    const QStringList lines = text.split('\n');
    const bool wraps =
        std::ranges::any_of(lines, [](const QString& line) { return line.size() > kShortLine; });
    return QString("<p style=\"white-space:%1\">%2</p>")
        .arg(QString(wraps ? "pre-wrap" : "pre"),
             text.toHtmlEscaped()); // "pre-wrap" would break short lines as well
}

QColor readableColor(const LabelColor& color, const QColor& base, const QColor& text) {
    if (color.red == 0 && color.green == 0 && color.blue == 0)
        return text;
    QColor shown = toQColor(color);
    if (luminance(base) > kLightGround)
        return shown;
    for (int step = 0; step < 20 && contrast(shown, base) < kWantedContrast; ++step)
        shown = mixedColor(shown, Qt::white, 0.08);
    return shown;
}

std::optional<QColor> groundForLabel(const LabelColor& color, const QColor& base) {
    if (luminance(base) <= kLightGround || contrast(toQColor(color), base) >= kLostContrast)
        return std::nullopt;
    return QColor(kDarkGround);
}

std::string frameText(const QRect& frame) {
    return QStringLiteral("%1 %2 %3 %4")
        .arg(frame.x())
        .arg(frame.y())
        .arg(frame.width())
        .arg(frame.height())
        .toStdString();
}

std::optional<QRect> frameIn(const std::string& text) {
    std::istringstream numbers(text);
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    if (!(numbers >> x >> y >> width >> height) || width <= 0 || height <= 0)
        return std::nullopt;
    return QRect(x, y, width, height);
}

QColor mixedColor(const QColor& from, const QColor& to, double amount) {
    const auto mix = [amount](float a, float b) { return static_cast<float>(a + (b - a) * amount); };
    return QColor::fromRgbF(mix(from.redF(), to.redF()), mix(from.greenF(), to.greenF()),
                            mix(from.blueF(), to.blueF()));
}

} // namespace tabulon
