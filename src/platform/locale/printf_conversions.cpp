#include "platform/locale/printf_conversions.h"

#include <cctype>
#include <cstring>
#include <string_view>

namespace {

// The next conversion at or after `text`, advancing `text` past it; empty
// when there is none left.
std::string_view NextConversion(const char*& text)
{
    while (*text != '\0') {
        if (*text != '%') {
            ++text;
            continue;
        }
        if (text[1] == '%') {
            text += 2;
            continue;
        }
        const char* start = text++;
        while (*text != '\0') {
            const char c = *text++;
            if (std::isalpha(static_cast<unsigned char>(c)) && std::strchr("hlLqjzt", c) == nullptr)
                break;
        }
        return std::string_view(start, static_cast<size_t>(text - start));
    }
    return {};
}

}  // namespace

bool SamePrintfConversions(const char* a, const char* b)
{
    for (;;) {
        const std::string_view left = NextConversion(a);
        const std::string_view right = NextConversion(b);
        if (left != right)
            return false;
        if (left.empty())
            return true;
    }
}
