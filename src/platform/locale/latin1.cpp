#include "platform/locale/latin1.h"

#include <cstdint>

bool Utf8ToLatin1(std::string_view utf8, std::string& out)
{
    size_t i = 0;
    while (i < utf8.size()) {
        const auto lead = static_cast<unsigned char>(utf8[i]);
        int extra = 0;
        uint32_t code = 0;
        uint32_t smallest = 0;
        if (lead < 0x80) {
            code = lead;
        } else if ((lead & 0xE0) == 0xC0) {
            extra = 1, code = lead & 0x1F, smallest = 0x80;
        } else if ((lead & 0xF0) == 0xE0) {
            extra = 2, code = lead & 0x0F, smallest = 0x800;
        } else if ((lead & 0xF8) == 0xF0) {
            extra = 3, code = lead & 0x07, smallest = 0x10000;
        } else {
            return false;
        }
        if (utf8.size() - i <= static_cast<size_t>(extra))
            return false;
        for (int k = 1; k <= extra; ++k) {
            const auto next = static_cast<unsigned char>(utf8[i + k]);
            if ((next & 0xC0) != 0x80)
                return false;
            code = (code << 6) | (next & 0x3F);
        }
        if (code < smallest || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF))
            return false;
        out += code <= 0xFF ? static_cast<char>(code) : '?';
        i += 1 + extra;
    }
    return true;
}

std::string FileNameToLatin1(std::string_view name)
{
    std::string shown;
    return Utf8ToLatin1(name, shown) ? shown : std::string(name);
}

std::string Latin1ToUtf8(std::string_view latin1)
{
    std::string utf8;
    utf8.reserve(latin1.size());
    for (const char c : latin1) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80) {
            utf8 += c;
        } else {
            utf8 += static_cast<char>(0xC0 | (byte >> 6));
            utf8 += static_cast<char>(0x80 | (byte & 0x3F));
        }
    }
    return utf8;
}

std::string FileNameToUtf8(std::string_view name)
{
    std::string unused;
    return Utf8ToLatin1(name, unused) ? std::string(name) : Latin1ToUtf8(name);
}
