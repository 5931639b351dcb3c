#include "platform/locale/mo_file.h"

#include <cstdint>

namespace {

constexpr uint32_t MoMagic = 0x950412de;
constexpr size_t MoHeaderSize = 28;

uint32_t ReadWord(std::string_view image, size_t offset, bool bigEndian)
{
    uint32_t word = 0;
    for (int i = 0; i < 4; ++i) {
        const auto byte = static_cast<unsigned char>(image[offset + (bigEndian ? i : 3 - i)]);
        word = (word << 8) | byte;
    }
    return word;
}

// Reads the string described by table row `row`; false if it lies outside
// the image or lacks its zero byte.
bool ReadString(std::string_view image, uint64_t row, bool bigEndian, std::string_view& out)
{
    const uint64_t length = ReadWord(image, row, bigEndian);
    const uint64_t offset = ReadWord(image, row + 4, bigEndian);
    if (offset + length >= image.size() || image[offset + length] != '\0')
        return false;
    out = image.substr(offset, length);
    return true;
}

}  // namespace

bool ParseMoFile(std::string_view image, std::vector<MoEntry>& entries)
{
    entries.clear();
    if (image.size() < MoHeaderSize)
        return false;
    bool bigEndian = false;
    if (ReadWord(image, 0, false) != MoMagic) {
        if (ReadWord(image, 0, true) != MoMagic)
            return false;
        bigEndian = true;
    }
    const uint32_t revision = ReadWord(image, 4, bigEndian);
    if ((revision >> 16) > 1)
        return false;
    const uint64_t count = ReadWord(image, 8, bigEndian);
    const uint64_t originals = ReadWord(image, 12, bigEndian);
    const uint64_t translations = ReadWord(image, 16, bigEndian);
    if (originals + count * 8 > image.size() || translations + count * 8 > image.size())
        return false;
    entries.resize(count);
    for (uint64_t i = 0; i < count; ++i) {
        if (!ReadString(image, originals + i * 8, bigEndian, entries[i].original)
            || !ReadString(image, translations + i * 8, bigEndian, entries[i].translation)) {
            entries.clear();
            return false;
        }
    }
    return true;
}
