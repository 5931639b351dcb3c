#pragma once
// String helpers over ISO 8859-1 text, as every part of the editor uses
// them: bounded copies and comparisons that ignore case, accented letters
// included (the multiplication and division signs are no letters).
#include <cstddef>

// Copies at most size - 1 bytes and always terminates (size 0 writes
// nothing). Returns the length of `source`, so a result >= size tells that
// the copy was cut.
size_t Strlcpy(char* destination, const char* source, size_t size);

// The case of one ISO 8859-1 character.
unsigned char ToUpper(unsigned char c);
unsigned char ToLower(unsigned char c);

// Compare ignoring case: < 0, 0 or > 0 as strcmp. Strnicmp looks at no more
// than `length` characters.
int Stricmp(const char* a, const char* b);
int Strnicmp(const char* a, const char* b, size_t length);
