#pragma once
// Classes of the 256 characters of ISO 8859-1, read by word motion and
// deletion, the macro compiler and the macro function that tells a
// character's type.
#include <array>
#include <cstdint>

constexpr uint8_t CharUpper = 0x01;       // A-Z and the accented capitals
constexpr uint8_t CharLower = 0x02;       // a-z and the accented small letters
constexpr uint8_t CharDigit = 0x04;       // 0-9
constexpr uint8_t CharSpace = 0x08;       // 9-13, 32, 0x89-0x8D, 0xA0
constexpr uint8_t CharPunctuation = 0x10; // printable signs, with the underscore and the hyphen
constexpr uint8_t CharVowel = 0x20;       // AEIOUY aeiouy and their accented forms (0xC7 too)
constexpr uint8_t CharWordLetter = 0x40;  // every letter, the apostrophe and the hyphen
constexpr uint8_t CharName = 0x80;        // digits, capitals and the underscore

// The bits of each character. Control characters, 127, 0x80-0x88 and
// 0x8E-0x9F have none, except those of the space row.
extern const std::array<uint8_t, 256> CharClass;

// A letter, a digit, the apostrophe or the hyphen: what deleting by word
// takes as one word.
bool IsWordChar(unsigned char c);
