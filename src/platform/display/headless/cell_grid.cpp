#include "platform/display/headless/cell_grid.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace {

int FloorDiv(int a, int b)
{
    int q = a / b;
    return (a % b != 0 && (a < 0) != (b < 0)) ? q - 1 : q;
}

int CeilDiv(int a, int b)
{
    return -FloorDiv(-a, b);
}

} // namespace

CellGrid::CellGrid(int originX, int originY, int cellWidth, int cellHeight)
    : originX_(originX), originY_(originY), cellWidth_(std::max(cellWidth, 1)),
      cellHeight_(std::max(cellHeight, 1))
{
}

void CellGrid::Resize(int columns, int rows)
{
    columns = std::max(columns, 0);
    rows = std::max(rows, 0);
    std::lock_guard<std::mutex> hold(lock_);
    std::vector<Cell> cells(static_cast<size_t>(columns * rows));
    for (int row = 0; row < std::min(rows, rows_); ++row) {
        for (int column = 0; column < std::min(columns, columns_); ++column)
            cells[static_cast<size_t>(row * columns + column)] = CellRef(column, row);
    }
    cells_ = std::move(cells);
    columns_ = columns;
    rows_ = rows;
}

int CellGrid::Columns() const
{
    std::lock_guard<std::mutex> hold(lock_);
    return columns_;
}

int CellGrid::Rows() const
{
    std::lock_guard<std::mutex> hold(lock_);
    return rows_;
}

Cell CellGrid::At(int column, int row) const
{
    std::lock_guard<std::mutex> hold(lock_);
    if (column < 0 || row < 0 || column >= columns_ || row >= rows_)
        return Cell{};
    return cells_[static_cast<size_t>(row * columns_ + column)];
}

std::string CellGrid::RowText(int row) const
{
    std::lock_guard<std::mutex> hold(lock_);
    std::string text;
    if (row < 0 || row >= rows_)
        return text;
    for (int column = 0; column < columns_; ++column)
        text += cells_[static_cast<size_t>(row * columns_ + column)].Char;
    return text;
}

CellGrid::Span CellGrid::ColumnsIn(int xMin, int xMax) const
{
    return {std::max(CeilDiv(xMin - originX_, cellWidth_), 0),
            std::min(FloorDiv(xMax - originX_, cellWidth_), columns_ - 1)};
}

CellGrid::Span CellGrid::RowsIn(int yMin, int yMax) const
{
    return {std::max(CeilDiv(yMin - originY_, cellHeight_), 0),
            std::min(FloorDiv(yMax - originY_, cellHeight_), rows_ - 1)};
}

void CellGrid::DrawText(const RastPort& rp, int x, int y, const char* text, int count)
{
    int baseline = rp.Font ? rp.Font->tf_Baseline : 0;
    std::lock_guard<std::mutex> hold(lock_);
    int row = FloorDiv(y - baseline - originY_, cellHeight_);
    if (row < 0 || row >= rows_)
        return;
    int first = FloorDiv(x - originX_, cellWidth_);
    for (int i = std::max(0, -first); i < count && first + i < columns_; ++i)
        CellRef(first + i, row) = {text[i], rp.FgPen, rp.BgPen};
}

void CellGrid::FillRect(const RastPort&, uint8_t pen, int xMin, int yMin, int xMax, int yMax)
{
    std::lock_guard<std::mutex> hold(lock_);
    Span columns = ColumnsIn(xMin, xMax);
    Span rows = RowsIn(yMin, yMax);
    for (int row = rows.first; row <= rows.last; ++row) {
        for (int column = columns.first; column <= columns.last; ++column)
            CellRef(column, row) = {' ', pen, pen};
    }
}

void CellGrid::ScrollRect(const RastPort& rp, int dx, int dy, int xMin, int yMin, int xMax, int yMax)
{
    std::lock_guard<std::mutex> hold(lock_);
    Span columns = ColumnsIn(xMin, xMax);
    Span rows = RowsIn(yMin, yMax);
    if (columns.last < columns.first || rows.last < rows.first)
        return;
    const int dc = dx / cellWidth_;
    const int dr = dy / cellHeight_;
    const int width = columns.last - columns.first + 1;
    const Cell blank{' ', rp.BgPen, rp.BgPen};
    // Row by row, in the order that reads each row before it is written
    // over: a text scrolled by a line moves every row of the area, often
    // once per line typed, so each row goes in one move.
    const int step = dr > 0 ? 1 : -1;
    for (int row = dr > 0 ? rows.first : rows.last; row >= rows.first && row <= rows.last; row += step) {
        Cell* to = &CellRef(columns.first, row);
        const int fromRow = row + dr;
        if (fromRow < rows.first || fromRow > rows.last || dc >= width || dc <= -width) {
            std::fill(to, to + width, blank);
            continue;
        }
        const Cell* from = &CellRef(columns.first, fromRow);
        const size_t kept = static_cast<size_t>(width - std::abs(dc));
        if (dc >= 0) {
            std::memmove(static_cast<void*>(to), from + dc, kept * sizeof(Cell));
            std::fill(to + kept, to + width, blank);
        } else {
            std::memmove(static_cast<void*>(to - dc), from, kept * sizeof(Cell));
            std::fill(to, to - dc, blank);
        }
    }
}
