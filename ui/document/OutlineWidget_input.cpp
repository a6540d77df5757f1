// Mouse, keyboard and tool tips of the outline.
#include "ui/Strings.h"
#include "ui/document/OutlineHeader.h"
#include "ui/document/OutlineModel.h"
#include "ui/document/OutlineWidget.h"
#include "window/ViewController.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMetaMethod>
#include <QScrollBar>
#include <QToolTip>

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

std::optional<std::size_t> OutlineWidget::hitTriangle(const QPoint& point) const {
    const QModelIndex index = indexAt(point);
    if (!index.isValid() || OutlineModel::columnAt(index.column()) != Column::Name)
        return std::nullopt;
    const auto row = static_cast<std::size_t>(index.row());
    const bool hit = controller_->outline().itemAtRow(row).isFolder() &&
                     geometry()
                         .nameCell(index.row(), controller_->outline().levelForRow(row), {})
                         .triangle.contains(point);
    return hit ? std::optional(row) : std::nullopt;
}

void OutlineWidget::setExpanded(std::size_t row, bool expanded, Depth depth) {
    Bookmark& item = controller_->outline().itemAtRow(row);
    if (depth == Depth::WithChildren)
        expanded ? controller_->outline().expandItemWithChildren(item)
                 : controller_->outline().collapseItemWithChildren(item);
    else
        expanded ? controller_->outline().expandItem(item) : controller_->outline().collapseItem(item);
}

void OutlineWidget::toggleRow(std::size_t row) {
    Bookmark& item = controller_->outline().itemAtRow(row);
    if (item.isFolder())
        controller_->expanding().doubleClickFolder(item);
}

void OutlineWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::RightButton) // keeps the selection
        return event->accept();
    if (controller_ && event->button() == Qt::LeftButton) {
        if (const auto row = hitTriangle(event->position().toPoint())) {
            const bool expanded = controller_->outline().itemAtRow(*row).showHier();
            setExpanded(*row, !expanded,
                        event->modifiers().testFlag(Qt::AltModifier) ? Depth::WithChildren
                                                                     : Depth::ItemAlone);
            return event->accept();
        }
    }
    QAbstractItemView::mousePressEvent(event);
}

void OutlineWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    const QPoint point = event->position().toPoint();
    if (controller_ && hitTriangle(point))
        return mousePressEvent(event);
    QAbstractItemView::mouseDoubleClickEvent(event);
    const QModelIndex index = indexAt(point);
    if (index.isValid() && event->button() == Qt::LeftButton)
        toggleRow(static_cast<std::size_t>(index.row()));
}

void OutlineWidget::contextMenuEvent(QContextMenuEvent* event) {
    static const QMetaMethod kWanted = QMetaMethod::fromSignal(&OutlineWidget::contextMenuWanted);
    if (!controller_ || !isSignalConnected(kWanted))
        return event->ignore();
    controller_->fields().cancelAutoEdit();
    endEditing();
    const bool byMouse = event->reason() == QContextMenuEvent::Mouse;
    const QModelIndex index = byMouse ? indexAt(event->pos()) : QModelIndex();
    controller_->outline().setClickedRow(
        index.isValid() ? std::optional(static_cast<std::size_t>(index.row())) : std::nullopt);
    emit contextMenuWanted(event->globalPos());
}

void OutlineWidget::contextMenuDidClose() {
    if (controller_)
        controller_->outline().setClickedRow(std::nullopt);
}

void OutlineWidget::mouseMoveEvent(QMouseEvent* event) {
    QAbstractItemView::mouseMoveEvent(event);
    if (!controller_)
        return;
    const QModelIndex index = indexAt(event->position().toPoint());
    controller_->outline().mouseMoved(index.isValid() ? std::optional(static_cast<std::size_t>(index.row()))
                                                      : std::nullopt);
}

void OutlineWidget::leaveEvent(QEvent* event) {
    QAbstractItemView::leaveEvent(event);
    if (controller_)
        controller_->outline().mouseExited();
}

bool OutlineWidget::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip && controller_) {
        const auto* help = static_cast<QHelpEvent*>(event);
        QToolTip::showText(help->globalPos(), toolTipAt(help->pos()), this);
        return true;
    }
    return QAbstractItemView::viewportEvent(event);
}

QString OutlineWidget::toolTipAt(const QPoint& point) const {
    const QModelIndex index = indexAt(point);
    if (!index.isValid())
        return {};
    const auto row = static_cast<std::size_t>(index.row());
    const Column column = OutlineModel::columnAt(index.column());
    const CellContent cell =
        controller_->cells().viewForTableColumn(column, row, selectionModel()->isSelected(index));
    QRect textRect = geometry().textArea(index.row(), column);
    if (cell.kind == CellKind::NameView) {
        const NameCellParts layout =
            geometry().nameCell(index.row(), controller_->outline().levelForRow(row), cell);
        if (layout.icon.contains(point) && !cell.iconToolTip.isEmpty())
            return toolTipText(cell.iconToolTip.view());
        if (layout.indicator.contains(point) && !cell.indicatorToolTip.isEmpty())
            return toolTipText(cell.indicatorToolTip.view());
        textRect = layout.text;
    }
    if (const Text tip = controller_->cells().toolTipForCell(column, row); !tip.isEmpty())
        return toolTipText(tip.view());
    const QString line = oneLine(cell.text.string.view(), textRect.width());
    const bool cut = fontMetrics().horizontalAdvance(line) > textRect.width();
    return cut ? toolTipText(cell.text.string.view()) : QString();
}

void OutlineWidget::keyPressEvent(QKeyEvent* event) {
    const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (event->isAutoRepeat() && endsField(event->key())) // the key is held since it ended a field
        return event->accept();
    if (controller_ && plain && movesTheCursor(event->key()) && showCursor(event->key()))
        return event->accept();
    if (controller_ && plain && deletes(event->key())) {
        controller_->editing().deleteSelection();
        return event->accept();
    }
    const bool sign = event->text() == "+" || event->text() == "*"; // typed with Shift on many keyboards
    if (controller_ && (plain || sign) && handleTreeKey(event->key()))
        return event->accept();
    QAbstractItemView::keyPressEvent(event);
}

// While no row is selected the current row cannot be seen. The first key selects it.
bool OutlineWidget::showCursor(int key) {
    const int rows = rows_->rowCount();
    if (selectionModel()->hasSelection() || rows == 0)
        return false;
    const int current = std::max(currentIndex().row(), 0);
    const int row = key == Qt::Key_Home ? 0 : key == Qt::Key_End ? rows - 1 : current;
    goToRow(static_cast<std::size_t>(row));
    return true;
}

bool OutlineWidget::handleTreeKey(int key) {
    if (!currentIndex().isValid())
        return false;
    const auto row = static_cast<std::size_t>(currentIndex().row());
    const Bookmark& item = controller_->outline().itemAtRow(row);
    const bool expanded = isExpanded(item);
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        toggleRow(row);
        return true;
    case Qt::Key_Plus:
    case Qt::Key_Minus:
        setExpanded(row, key == Qt::Key_Plus, Depth::ItemAlone);
        return true;
    case Qt::Key_Asterisk:
        setExpanded(row, true, Depth::WithChildren);
        return true;
    case Qt::Key_Right:
        if (!expanded)
            setExpanded(row, true, Depth::ItemAlone);
        else if (item.hasChildren())
            goToRow(row + 1);
        return true;
    case Qt::Key_Left:
        if (expanded)
            setExpanded(row, false, Depth::ItemAlone);
        else if (const auto parent = controller_->outline().rowForItem(*item.getParent()))
            goToRow(*parent);
        return true;
    default:
        return false;
    }
}

void OutlineWidget::keyboardSearch(const QString& search) {
    if (!controller_ || search.isEmpty() || rows_->rowCount() == 0)
        return;
    const bool goesOn =
        sinceTyped_.isValid() && sinceTyped_.elapsed() < QApplication::keyboardInputInterval();
    const bool sameLetter = goesOn && typed_ == search;
    typed_ = goesOn && !sameLetter ? typed_ + search : search;
    sinceTyped_.start();
    const int current = std::max(0, currentIndex().row());
    const bool lookFurther = selectionModel()->hasSelection() && typed_ == search;
    const auto start = static_cast<std::size_t>((current + (lookFurther ? 1 : 0)) % rows_->rowCount());
    if (const auto row = controller_->finding().rowWithPrefix(typed_.toStdString(), start))
        goToRow(*row);
}

} // namespace tabulon
