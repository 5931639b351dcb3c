#include "files/tab_compression.h"

#include <cstring>

namespace {

constexpr size_t TabStop = 8;
constexpr uint16_t TwoSpaces = 0x2020;

bool StopsCompression(unsigned char c)
{
    return c < 32 || c == '"' || c == '\'' || c == '`' || c == '(';
}

bool HasStop(const char* from, const char* to)
{
    for (; from < to; ++from) {
        if (StopsCompression(static_cast<unsigned char>(*from)))
            return true;
    }
    return false;
}

} // namespace

// Only a group of 8 columns whose last two are spaces changes: its trailing
// run of spaces becomes one tab. The text between such groups is copied in
// one piece, and characters that stop compression are looked for only in
// front of a group about to change, so a line without long runs of spaces
// costs little more than a copy.
int32_t CompressTabs(const char* text, size_t length, char* out)
{
    size_t copied = 0;  // text in front of this is in `out`
    size_t checked = 0; // text in front of this holds nothing that stops compression
    char* next = out;
    for (size_t last = TabStop - 1; last < length; last += TabStop) {
        // One test of both columns: a space alone at a stop is common and
        // comes at random, two are rare, so the branch is well predicted.
        uint16_t pair;
        std::memcpy(&pair, text + last - 1, sizeof pair);
        if (pair != TwoSpaces)
            continue;
        if (HasStop(text + checked, text + last))
            break;
        checked = last + 1;
        const size_t groupStart = last + 1 - TabStop;
        size_t first = last - 1;
        while (first > groupStart && text[first - 1] == ' ')
            --first;
        std::memcpy(next, text + copied, first - copied);
        next += first - copied;
        *next++ = '\t';
        copied = last + 1;
    }
    std::memcpy(next, text + copied, length - copied);
    next += length - copied;
    *next = 0;
    return static_cast<int32_t>(next - out);
}
