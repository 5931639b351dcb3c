#pragma once
// Conversion of catalog texts to ISO 8859-1, the editor's only encoding.

#include <string>
#include <string_view>

// Appends `utf8` to `out` as ISO 8859-1: code points up to 0xFF become one
// byte, higher ones '?'. False, with `out` in an unspecified state, when
// `utf8` is not valid UTF-8 (bad or truncated sequences, overlong forms,
// surrogates, values beyond 0x10FFFF).
bool Utf8ToLatin1(std::string_view utf8, std::string& out);
