#include "config/key_names.h"

#include "config/key_map.h"
#include "platform/dos/numbers.h"
#include "platform/utility/strings.h"

#include <cstring>

namespace {

struct QualifierWord {
    const char* Word;
    uint32_t Bits; // as an input qualifier word
};

constexpr QualifierWord Words[] = {{"Shift", 0x01}, {"Alt", 0x10}, {"Ctrl", 0x08}};

// The word at the front of `text`, or null.
const QualifierWord* WordAt(const char* text)
{
    for (const QualifierWord& word : Words) {
        if (Strnicmp(text, word.Word, std::strlen(word.Word)) == 0)
            return &word;
    }
    return nullptr;
}

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

} // namespace

int ParseKeyName(const char* text, ParsedKey* parsed)
{
    uint32_t bits = 0;
    const char* at = text;
    // A qualifier word must be followed by '-'; a lone letter such as the
    // "s" of "Ctrl-s" is no word and ends the qualifiers.
    while (const QualifierWord* word = WordAt(at)) {
        const size_t length = std::strlen(word->Word);
        if (at[length] != '-')
            return -1;
        bits |= word->Bits;
        at += length + 1;
    }
    if (*at == '\0')
        return -1;
    const auto first = static_cast<unsigned char>(ToLower(static_cast<unsigned char>(*at)));
    if (first == 'f' && IsDigit(at[1])) {
        long number = 0;
        StrToLong(at + 1, &number);
        if (number < 1 || number > LastFunctionKey)
            return -1;
        parsed->Key = static_cast<uint8_t>(number);
    } else {
        // Bytes up to 31 are the numbers of function keys in the map and
        // would be written back as one.
        if (at[1] != '\0' || bits == 0 || first <= 31)
            return -1;
        parsed->Key = first;
    }
    parsed->Qualifier = QualifierToIndex(bits);
    return static_cast<int>(parsed->Qualifier);
}

std::string FormatKeyName(uint8_t key, uint32_t qualifier)
{
    std::string name;
    if (qualifier > 0 && qualifier < QualifierCount) {
        name = QualifierNames[qualifier];
        name += '-';
    }
    if (key <= 31) {
        name += 'F';
        name += std::to_string(key);
    } else {
        name += static_cast<char>(key);
    }
    return name;
}
