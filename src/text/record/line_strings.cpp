#include "text/record/line_strings.h"

#include <cstring>

namespace {

// The first `length` characters of `text` without their trailing spaces.
int32_t WithoutTrailingSpaces(const char* text, int32_t length)
{
    while (length > 0 && text[length - 1] == ' ') {
        --length;
    }
    return length;
}

} // namespace

int32_t VisibleLength(const char* text)
{
    return WithoutTrailingSpaces(text, static_cast<int32_t>(std::strlen(text)));
}

int32_t TrimLineEnd(char* text)
{
    const auto full = static_cast<int32_t>(std::strlen(text));
    const int32_t length = WithoutTrailingSpaces(text, full);
    std::memset(text + length, 0, static_cast<size_t>(full - length));
    return length;
}

bool IsBlankText(const char* text)
{
    return text[IndentOf(text)] == '\0';
}

int32_t IndentOf(const char* text)
{
    int32_t count = 0;
    while (text[count] == ' ') {
        ++count;
    }
    return count;
}
