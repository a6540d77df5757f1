// What a window shows in place of the rows of an empty document: what the program is for and what to press.
#pragma once

#include "base/Localization.h"

#include <QWidget>

namespace tabulon {

class EmptyState : public QWidget {
    Q_OBJECT

public:
    EmptyState(const Localization& texts, QWidget* parent);

signals:
    /// The user pressed the button for opening a file.
    void openRequested();
};

} // namespace tabulon
