// One line of text that never widens its window: a text that does not fit ends with an ellipsis, and its tool
// tip has all of it.
#pragma once

#include <QLabel>

namespace tabulon {

/// The label. Its text is plain, without markup.
class ElidedLabel : public QLabel {
    Q_OBJECT

public:
    /// `parent` owns the label.
    explicit ElidedLabel(QWidget* parent);

    /// Returns the height of one line with a few pixels above and below it. The width is ignored by layouts.
    QSize sizeHint() const override;
    /// Returns the same height with the width 0.
    QSize minimumSizeHint() const override;

protected:
    /// Sets the tool tip when it is requested: the whole text, or an empty one if all of the text is shown.
    bool event(QEvent* event) override;
    /// Paints a line at the upper edge and as much of the text as fits.
    void paintEvent(QPaintEvent* event) override;

private:
    /// Returns the area inside the margins.
    QRect textArea() const;
    /// Returns whether the text does not fit.
    bool isCut() const;
};

} // namespace tabulon
