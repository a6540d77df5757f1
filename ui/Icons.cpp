#include "ui/Icons.h"

#include "ui/Strings.h"

#include <QFile>
#include <QPainter>

namespace tabulon {

QIcon iconNamed(std::string_view name) {
    if (name.empty())
        return {};
    const QString own = ":/icons/" + toQString(name) + ".svg";
    return QFile::exists(own) ? QIcon(own) : applicationIcon(name);
}

QIcon applicationIcon(std::string_view name) {
    const QString text = toQString(name);
    return text.startsWith('/') ? QIcon(text) : QIcon::fromTheme(text);
}

QIcon labelSwatch(const LabelColor& color) {
    constexpr int kSize = 64; // scaled down where it is shown
    QPixmap pixmap(kSize, kSize);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(128, 128, 128), kSize / 16.0));
    painter.setBrush(QColor::fromRgbF(static_cast<float>(color.red), static_cast<float>(color.green),
                                      static_cast<float>(color.blue), static_cast<float>(color.alpha)));
    painter.drawEllipse(pixmap.rect().adjusted(8, 8, -8, -8));
    return QIcon(pixmap);
}

} // namespace tabulon
