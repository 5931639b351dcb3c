#include "platform/utility/strings.h"

#include <cstring>

size_t Strlcpy(char* destination, const char* source, size_t size)
{
    size_t length = std::strlen(source);
    if (size == 0)
        return length;
    size_t copied = length < size - 1 ? length : size - 1;
    std::memmove(destination, source, copied);
    destination[copied] = 0;
    return length;
}

unsigned char ToUpper(unsigned char c)
{
    if (c >= 'a' && c <= 'z')
        return static_cast<unsigned char>(c - 0x20);
    // 0xFF (y with diaeresis) has no capital in ISO 8859-1; 0xDF (sharp s)
    // has none either and lies below the range.
    if (c >= 0xE0 && c <= 0xFE && c != 0xF7)
        return static_cast<unsigned char>(c - 0x20);
    return c;
}

unsigned char ToLower(unsigned char c)
{
    if (c >= 'A' && c <= 'Z')
        return static_cast<unsigned char>(c + 0x20);
    if (c >= 0xC0 && c <= 0xDE && c != 0xD7)
        return static_cast<unsigned char>(c + 0x20);
    return c;
}

int Strnicmp(const char* a, const char* b, size_t length)
{
    for (size_t i = 0; i < length; ++i) {
        int x = ToLower(static_cast<unsigned char>(a[i]));
        int y = ToLower(static_cast<unsigned char>(b[i]));
        if (x != y || x == 0)
            return x - y;
    }
    return 0;
}

int Stricmp(const char* a, const char* b)
{
    return Strnicmp(a, b, static_cast<size_t>(-1));
}
