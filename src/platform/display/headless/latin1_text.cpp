#include "platform/display/headless/latin1_text.h"

std::string Latin1FromUtf8(const std::string& text)
{
    std::string bytes;
    bytes.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        auto character = static_cast<unsigned char>(text[i]);
        auto trail = i + 1 < text.size() ? static_cast<unsigned char>(text[i + 1]) : 0;
        if ((character == 0xC2 || character == 0xC3) && (trail & 0xC0) == 0x80) {
            character = static_cast<unsigned char>(((character & 0x03) << 6) | (trail & 0x3F));
            ++i;
        }
        bytes.push_back(static_cast<char>(character));
    }
    return bytes;
}
