#include "text/record/char_class.h"

#include <array>
#include <cstddef>

namespace {

constexpr void SetRange(std::array<uint8_t, 256>& table, int first, int last, uint8_t bits)
{
    for (int c = first; c <= last; ++c)
        table[static_cast<std::size_t>(c)] |= bits;
}

constexpr void SetEach(std::array<uint8_t, 256>& table, const char* characters, uint8_t bits)
{
    for (; *characters; ++characters)
        table[static_cast<unsigned char>(*characters)] |= bits;
}

constexpr std::array<uint8_t, 256> BuildCharClass()
{
    std::array<uint8_t, 256> table{};
    SetRange(table, 'A', 'Z', CharUpper);
    SetRange(table, 0xC0, 0xCF, CharUpper);
    SetRange(table, 0xD1, 0xD6, CharUpper);
    SetRange(table, 0xD9, 0xDD, CharUpper);

    SetRange(table, 'a', 'z', CharLower);
    SetRange(table, 0xE0, 0xEF, CharLower);
    SetRange(table, 0xF1, 0xF6, CharLower);
    SetRange(table, 0xF9, 0xFD, CharLower);

    SetRange(table, '0', '9', CharDigit);

    SetRange(table, 9, 13, CharSpace);
    SetRange(table, ' ', ' ', CharSpace);
    SetRange(table, 0x89, 0x8D, CharSpace);
    SetRange(table, 0xA0, 0xA0, CharSpace);

    SetRange(table, 33, 38, CharPunctuation);
    SetRange(table, 40, 47, CharPunctuation);
    SetRange(table, 58, 64, CharPunctuation);
    SetRange(table, 91, 96, CharPunctuation);
    SetRange(table, 123, 126, CharPunctuation);
    SetRange(table, 0xA1, 0xBF, CharPunctuation);
    for (int c : {0xD0, 0xD7, 0xD8, 0xDE, 0xDF, 0xF0, 0xF7, 0xF8, 0xFE, 0xFF})
        table[static_cast<std::size_t>(c)] |= CharPunctuation;

    SetEach(table, "AEIOUYaeiouy", CharVowel);
    SetRange(table, 0xC0, 0xCF, CharVowel);
    SetRange(table, 0xD2, 0xD6, CharVowel);
    SetRange(table, 0xD9, 0xDD, CharVowel);
    SetRange(table, 0xE0, 0xE6, CharVowel);
    SetRange(table, 0xE8, 0xEF, CharVowel);
    SetRange(table, 0xF2, 0xF6, CharVowel);
    SetRange(table, 0xF9, 0xFD, CharVowel);

    for (int c = 0; c < 256; ++c) {
        uint8_t& bits = table[static_cast<std::size_t>(c)];
        if (bits & (CharUpper | CharLower))
            bits |= CharWordLetter;
        if (bits & (CharUpper | CharDigit))
            bits |= CharName;
    }
    SetEach(table, "'-", CharWordLetter);
    SetEach(table, "_", CharName);
    return table;
}

} // namespace

// Built at compile time, so the table is ready before any process runs.
constinit const std::array<uint8_t, 256> CharClass = BuildCharClass();

bool IsWordChar(unsigned char c)
{
    return (CharClass[c] & (CharUpper | CharLower | CharDigit | CharWordLetter)) != 0;
}
