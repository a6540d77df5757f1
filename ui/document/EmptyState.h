// What a window shows instead of the rows of an empty document: the purpose of the program, and a button to
// open a file.
#pragma once

#include "base/Localization.h"

#include <QWidget>

namespace tabulon {

/// The page of an empty document. Its button receives the keyboard when the page does.
class EmptyState : public QWidget {
    Q_OBJECT

public:
    /// Creates the page. `texts` is used only during the construction. `parent` owns the widget.
    EmptyState(const Localization& texts, QWidget* parent);

signals:
    /// Emitted when the user has pressed the button to open a file.
    void openRequested();
};

} // namespace tabulon
