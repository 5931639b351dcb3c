#pragma once
// Distinct types for a line index and a column, both counted from 0, for the
// operations that take both: some take (line, column) and others (column,
// line), and a swap must not compile.
#include <cstdint>

struct LineIndex {
    constexpr explicit LineIndex(int32_t line)
        : value(line) { }
    int32_t value;
};

struct ColumnIndex {
    constexpr explicit ColumnIndex(int32_t column)
        : value(column) { }
    int32_t value;
};
