#pragma once
// The token form shared by the pattern compiler and the matcher. Each token
// is a tag byte, some followed by data:
//
//   PT_END                       end of the pattern
//   PT_CHAR c                    the character c
//   PT_ANY, PT_EMPTY             ? and %
//   PT_REPEAT item, PT_NOT item  # and ~, applied to the item that follows
//   PT_OPEN ... PT_ALT ... PT_CLOSE   a group and its alternatives
//   PT_CLASS neg n_hi n_lo (lo hi)*n  a class of n ranges, complemented
//                                     when neg is 1
//
// A buffer whose first byte is PT_INVALID holds a pattern that failed to
// parse.
#include <cstdint>

enum PatternTag : uint8_t {
    PT_END = 0,
    PT_CHAR = 1,
    PT_ANY = 2,
    PT_EMPTY = 3,
    PT_REPEAT = 4,
    PT_NOT = 5,
    PT_OPEN = 6,
    PT_ALT = 7,
    PT_CLOSE = 8,
    PT_CLASS = 9,
    PT_INVALID = 10,
};

// Deepest nesting of groups and prefixes that the compiler accepts.
constexpr int PatternMaxDepth = 64;
// Most items other than single characters (#, ~, groups, %) in a pattern;
// each may cost the matcher a few levels of recursion.
constexpr int PatternMaxComposites = 500;

// Upper case of an ISO 8859-1 character.
inline uint8_t PatternUpper(uint8_t c) {
    if ((c >= 'a' && c <= 'z') || (c >= 0xE0 && c <= 0xFE && c != 0xF7)) return c - 0x20;
    return c;
}

// Lower case of an ISO 8859-1 character.
inline uint8_t PatternLower(uint8_t c) {
    if ((c >= 'A' && c <= 'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7)) return c + 0x20;
    return c;
}
