// What is under the pointer in the outline: the triangle of a folder, and the part that a tool tip explains.
#pragma once

#include <QString>

#include <cstddef>
#include <optional>

class QPoint;

namespace tabulon {

class OutlineRowsView;
class RowSource;

/// Points are in the viewport. Requires: the view has a model while a function is called.
class OutlinePointer {
public:
    /// Requires: the arguments outlive this object.
    OutlinePointer(const OutlineRowsView& view, const RowSource& source) : view_(view), source_(source) {}

    /// Returns the row at this point, or `nullopt` if there is none.
    std::optional<std::size_t> rowAt(const QPoint& point) const;
    /// Returns the row of the folder whose triangle is at this point, or `nullopt` if there is none. The area
    /// of a triangle is as high as the row.
    std::optional<std::size_t> triangleAt(const QPoint& point) const;
    /// Returns the tool tip at this point, as escaped rich text: that of the image under it, else that of the
    /// cell, else the cell's text if it is cut off. Empty if there is none.
    QString toolTipAt(const QPoint& point) const;

private:
    const OutlineRowsView& view_;
    const RowSource& source_;
};

} // namespace tabulon
