#pragma once
// TextNameList, the answer of CMD_LIST_TEXTS: one AllocVec block of
// count x 34 bytes that the caller frees. A 16-bit count at the start, then
// `count` rows 34 bytes apart, the first at offset 2, each a terminated
// char[32]: the file part of a text's FileName, cut to 31 characters. Rows
// are in TextList order, after an optional first row "New window".
#include <cstdint>
#include <cstring>

constexpr int TextNameRowSpacing = 34;
constexpr int TextNameRowSize = 32;

inline uint16_t TextNameCount(const void* list)
{
    uint16_t count;
    std::memcpy(&count, list, sizeof count);
    return count;
}

inline const char* TextNameRow(const void* list, int row)
{
    return static_cast<const char*>(list) + 2 + row * TextNameRowSpacing;
}
