#pragma once
// Key descriptions: the text form of a key and its qualifiers, as the
// preferences file and MAP, UNMAP and READMAP write them ("F1", "Shift-F3",
// "Alt-Ctrl-x").
#include <cstdint>
#include <string>

struct ParsedKey {
    uint8_t Key = 0;        // 1 to 12 for F1 to F12, else a lower-case character
    uint32_t Qualifier = 0; // QualifierIndex
};

// Any number of "Shift-", "Alt-", "Ctrl-" (case ignored, any order,
// repeats allowed), then either "F" and a number 1 to 12 (whatever follows
// the number is ignored) or one last character, which needs a qualifier
// and can't be a control character.
// The QualifierIndex, or -1 for a description that is none.
int ParseKeyName(const char* text, ParsedKey* parsed);

// "F3", "Shift-F3", "Alt-Ctrl-a": the description of a key as the
// preferences file writes it.
std::string FormatKeyName(uint8_t key, uint32_t qualifier);
