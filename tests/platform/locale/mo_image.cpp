#include "mo_image.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

namespace {

void PutWord(std::string& image, uint32_t word, bool bigEndian)
{
    for (int i = 0; i < 4; ++i) {
        const int shift = bigEndian ? 24 - 8 * i : 8 * i;
        image += static_cast<char>((word >> shift) & 0xFF);
    }
}

}  // namespace

MoText MoHeader(const std::string& fields)
{
    return {"", fields};
}

MoText MoHeaderOfVersion(int version)
{
    return MoHeader("Content-Type: text/plain; charset=UTF-8\nX-Catalog-Version: "
                    + std::to_string(version) + "\n");
}

MoText MoMessage(long number, const std::string& msgid, const std::string& msgstr)
{
    return {std::to_string(number) + '\x04' + msgid, msgstr};
}

std::string BuildMoImage(std::vector<MoText> entries, bool bigEndian)
{
    std::sort(entries.begin(), entries.end(),
              [](const MoText& a, const MoText& b) { return a.original < b.original; });
    const auto count = static_cast<uint32_t>(entries.size());
    const uint32_t originals = 28;
    const uint32_t translations = originals + 8 * count;
    uint32_t next = translations + 8 * count;
    std::string image;
    PutWord(image, 0x950412de, bigEndian);
    PutWord(image, 0, bigEndian);
    PutWord(image, count, bigEndian);
    PutWord(image, originals, bigEndian);
    PutWord(image, translations, bigEndian);
    PutWord(image, 0, bigEndian);
    PutWord(image, next, bigEndian);
    std::string strings;
    std::string translationTable;
    auto place = [&](const std::string& text, std::string& table) {
        PutWord(table, static_cast<uint32_t>(text.size()), bigEndian);
        PutWord(table, next, bigEndian);
        strings += text;
        strings += '\0';
        next += static_cast<uint32_t>(text.size()) + 1;
    };
    for (const MoText& entry : entries)
        place(entry.original, image);
    for (const MoText& entry : entries)
        place(entry.translation, translationTable);
    return image + translationTable + strings;
}

void WriteTestFile(const std::string& path, const std::string& bytes)
{
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
}
