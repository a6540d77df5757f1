#include "ui/document/OutlineKeys.h"

#include "ui/document/OutlineRowsView.h"
#include "window/EditingCommands.h"
#include "window/ExpandCommands.h"
#include "window/Finding.h"
#include "window/OpenCommands.h"
#include "window/Outline.h"

#include <QApplication>
#include <QKeyEvent>

#include <algorithm>

namespace tabulon {
namespace {

bool deletes(int key) {
    return key == Qt::Key_Backspace || key == Qt::Key_Delete || key == Qt::Key_Clear;
}

bool endsField(int key) {
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

bool movesTheCursor(int key) {
    return key >= Qt::Key_Home && key <= Qt::Key_PageDown; // with End and the arrows between them
}

} // namespace

bool OutlineKeys::press(const QKeyEvent& event) {
    if (event.isAutoRepeat() && endsField(event.key())) // the key is held since it ended a field
        return true;
    const bool plain = (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (plain && movesTheCursor(event.key()) && showCursor(event.key()))
        return true;
    if (plain && deletes(event.key())) {
        commands_.editing.deleteSelection();
        return true;
    }
    const bool sign = event.text() == "+" || event.text() == "*"; // typed with Shift on many keyboards
    return (plain || sign) && pressTreeKey(event.key());
}

// While no row is selected the current row cannot be seen. The first key selects it.
bool OutlineKeys::showCursor(int key) {
    const int rows = view_.rowCount();
    if (view_.selectionModel()->hasSelection() || rows == 0)
        return false;
    const int current = std::max(view_.currentIndex().row(), 0);
    const int row = key == Qt::Key_Home ? 0 : key == Qt::Key_End ? rows - 1 : current;
    view_.goToRow(static_cast<std::size_t>(row));
    return true;
}

void OutlineKeys::toggleRow(std::size_t row) {
    Bookmark& item = commands_.outline.itemAtRow(row);
    if (item.isFolder())
        commands_.expanding.doubleClickFolder(item);
}

bool OutlineKeys::pressTreeKey(int key) {
    if (!view_.currentIndex().isValid())
        return false;
    const auto row = static_cast<std::size_t>(view_.currentIndex().row());
    Bookmark& item = commands_.outline.itemAtRow(row);
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        commands_.opening.pressReturn(item);
        return true;
    case Qt::Key_Plus:
        commands_.outline.expandItem(item);
        return true;
    case Qt::Key_Minus:
        commands_.outline.collapseItem(item);
        return true;
    case Qt::Key_Asterisk:
        commands_.outline.expandItemWithChildren(item);
        return true;
    case Qt::Key_Right:
        goRight(row);
        return true;
    case Qt::Key_Left:
        goLeft(row);
        return true;
    default:
        return false;
    }
}

void OutlineKeys::goRight(std::size_t row) {
    Bookmark& item = commands_.outline.itemAtRow(row);
    if (!isExpanded(item))
        commands_.outline.expandItem(item);
    else if (item.hasChildren())
        view_.goToRow(row + 1);
}

void OutlineKeys::goLeft(std::size_t row) {
    Bookmark& item = commands_.outline.itemAtRow(row);
    if (isExpanded(item))
        commands_.outline.collapseItem(item);
    else if (const auto parent = commands_.outline.rowForItem(*item.getParent()))
        view_.goToRow(*parent);
}

void OutlineKeys::type(const QString& text) {
    const int rows = view_.rowCount();
    if (text.isEmpty() || rows == 0)
        return;
    const bool goesOn =
        sinceTyped_.isValid() && sinceTyped_.elapsed() < QApplication::keyboardInputInterval();
    const bool sameLetter = goesOn && typed_ == text;
    typed_ = goesOn && !sameLetter ? typed_ + text : text;
    sinceTyped_.start();
    const int current = std::max(0, view_.currentIndex().row());
    const bool lookFurther = view_.selectionModel()->hasSelection() && typed_ == text;
    const auto start = static_cast<std::size_t>((current + (lookFurther ? 1 : 0)) % rows);
    if (const auto row = commands_.finding.rowWithPrefix(typed_.toStdString(), start))
        view_.goToRow(*row);
}

} // namespace tabulon
