#pragma once
// The headless rastport: a grid of cells covering a window's text area, each
// a byte with its foreground and background pen.
//
// Pixel coordinates map to cells from the grid's origin (the window's
// BorderLeft, BorderTop) by the cell size: a character goes to the cell
// whose band holds its top (baseline y - tf_Baseline); a fill or a scroll
// takes the cells whose top-left pixel lies in its rectangle, and a scroll
// moves by whole cells (dx / cell width, dy / cell height). Whatever falls
// outside the grid is clipped. Thread-safe: each call holds the grid's lock.
#include "platform/display/graphics.h"

#include <mutex>
#include <string>
#include <vector>

struct Cell {
    char Char = ' ';
    uint8_t FgPen = 0;
    uint8_t BgPen = 0;
    bool operator==(const Cell&) const = default;
};

class CellGrid final : public RastSurface {
public:
    CellGrid(int originX, int originY, int cellWidth, int cellHeight);

    // Keeps the cells that still fit at the top left; new cells are blank
    // in pen 0. Negative sizes count as 0.
    void Resize(int columns, int rows);
    int Columns() const;
    int Rows() const;
    // A blank cell outside the grid.
    Cell At(int column, int row) const;
    // The bytes of a row, all columns; empty outside the grid.
    std::string RowText(int row) const;

    void DrawText(const RastPort& rp, int x, int y, const char* text, int count) override;
    void FillRect(const RastPort& rp, uint8_t pen, int xMin, int yMin, int xMax, int yMax) override;
    void ScrollRect(const RastPort& rp, int dx, int dy, int xMin, int yMin, int xMax, int yMax) override;

private:
    struct Span {
        int first, last;   // inclusive cell range, empty when last < first
    };
    Span ColumnsIn(int xMin, int xMax) const;
    Span RowsIn(int yMin, int yMax) const;
    Cell& CellRef(int column, int row) { return cells_[static_cast<size_t>(row * columns_ + column)]; }

    mutable std::mutex lock_;
    const int originX_, originY_, cellWidth_, cellHeight_;
    int columns_ = 0;
    int rows_ = 0;
    std::vector<Cell> cells_;
};
