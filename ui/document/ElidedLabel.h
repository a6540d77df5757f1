// One line of text that never widens its window: what does not fit ends in an ellipsis.
#pragma once

#include <QWidget>

namespace tabulon {

class ElidedLabel : public QWidget {
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget* parent);

    QString text() const { return text_; }
    void setText(const QString& text);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString text_;
};

} // namespace tabulon
