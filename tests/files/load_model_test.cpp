// Random files loaded and compared line by line with a plain model of how
// bytes become lines: newlines, tabs, zero bytes, trailing spaces and lines
// too long for the text, anywhere, also across the edges of the blocks a
// load reads. Most lines of a real file take a shorter way into the text
// than the others, and the two must never differ.
#include "files_test_support.h"

#include "files/file_buffer.h"
#include "files/load_text.h"

#include <algorithm>
#include <random>
#include <string>

namespace {

constexpr size_t FullLine = 255;

// The lines of `bytes` as the text keeps them: a newline ends a line, a tab
// opens into spaces up to the next multiple of 8, a line that reaches the
// full length ends there and takes a newline right behind it along; each
// line then ends at its first zero byte and loses its trailing spaces.
Lines ModelLines(const std::string& bytes)
{
    Lines raw;
    std::string line;
    for (size_t i = 0; i < bytes.size();) {
        const char byte = bytes[i++];
        if (byte == '\n') {
            raw.push_back(line);
            line.clear();
            continue;
        }
        if (byte == '\t')
            line.append(std::min((line.size() / 8 + 1) * 8, FullLine) - line.size(), ' ');
        else
            line += byte;
        if (line.size() == FullLine) {
            raw.push_back(line);
            line.clear();
            if (i < bytes.size() && bytes[i] == '\n')
                ++i;
        }
    }
    if (!line.empty())
        raw.push_back(line);
    Lines lines;
    for (std::string stored : raw) {
        stored.resize(std::min(stored.size(), stored.find('\0')));
        stored.erase(stored.find_last_not_of(' ') + 1);
        lines.push_back(stored);
    }
    if (lines.empty())
        lines.push_back("");
    return lines;
}

// Bytes in lines of random lengths, short ones most often, with a tab, a
// zero byte or trailing spaces now and then.
std::string RandomBytes(std::mt19937& random, size_t size)
{
    auto below = [&](uint32_t n) { return random() % n; };
    std::string bytes;
    while (bytes.size() < size) {
        const uint32_t kind = below(20);
        std::string line;
        for (size_t length = kind == 0 ? 240 + below(40) : below(60); line.size() < length;)
            line += static_cast<char>('a' + below(26));
        if (kind == 1 || kind == 2)
            line.insert(below(static_cast<uint32_t>(line.size()) + 1), 1, kind == 1 ? '\t' : '\0');
        if (kind == 3)
            line.append(below(6), ' ');
        bytes += line;
        // Now and then two lines run into one.
        if (kind != 4)
            bytes += '\n';
    }
    bytes.resize(size);
    return bytes;
}

TEST_F(FilesTest, RandomFilesLoadAsTheModelSays)
{
    std::mt19937 random(5);
    for (int round = 0; round < 400; ++round) {
        SCOPED_TRACE(round);
        const std::string bytes = RandomBytes(random, random() % 3000);
        WriteFile("random", bytes);
        LoadText(record_.get(), Path("random").c_str(), false);
        ASSERT_EQ(StoredLines(), ModelLines(bytes));
    }
}

// Files of a few blocks, so that lines of every kind meet the blocks' edges.
TEST_F(FilesTest, RandomFilesOverBlockEdgesLoadAsTheModelSays)
{
    std::mt19937 random(8);
    for (int round = 0; round < 3; ++round) {
        SCOPED_TRACE(round);
        const std::string bytes = RandomBytes(random, 2 * FileBufferRequest + random() % 1000);
        WriteFile("random", bytes);
        ASSERT_TRUE(LoadText(record_.get(), Path("random").c_str(), false));
        ASSERT_EQ(StoredLines(), ModelLines(bytes));
    }
}

} // namespace
