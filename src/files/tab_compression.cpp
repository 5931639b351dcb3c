#include "files/tab_compression.h"

#include <cstring>

namespace {

constexpr int32_t TabStop = 8;

bool StopsCompression(unsigned char c)
{
    return c < 32 || c == '"' || c == '\'' || c == '`' || c == '(';
}

} // namespace

int32_t CompressTabs(const char* text, char* out)
{
    int32_t length = 0;
    int32_t groupStart = 0;   // where the current group of 8 columns begins in `out`
    for (int32_t column = 0; text[column]; ++column) {
        const char c = text[column];
        const int32_t k = column % TabStop;
        if (k == 0)
            groupStart = length;
        out[length++] = c;
        if (k == TabStop - 1 && c == ' ' && length >= 2 && out[length - 2] == ' ') {
            int32_t first = length - 1;
            while (first > groupStart && out[first - 1] == ' ')
                --first;
            out[first] = '\t';
            length = first + 1;
        } else if (StopsCompression(static_cast<unsigned char>(c))) {
            const size_t rest = std::strlen(text + column + 1);
            std::memcpy(out + length, text + column + 1, rest);
            length += static_cast<int32_t>(rest);
            break;
        }
    }
    out[length] = 0;
    return length;
}
