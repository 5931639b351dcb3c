#include "platform/icon/tooltypes.h"

namespace {

// Upper case over ISO 8859-1: the ASCII letters and the accented letters
// 0xE0 to 0xFE, except the division sign 0xF7.
unsigned char UpperLatin1(unsigned char c) {
  if (c >= 'a' && c <= 'z') return static_cast<unsigned char>(c - 32);
  if (c >= 0xE0 && c <= 0xFE && c != 0xF7) return static_cast<unsigned char>(c - 32);
  return c;
}

bool SameChar(char a, char b) {
  return UpperLatin1(static_cast<unsigned char>(a)) == UpperLatin1(static_cast<unsigned char>(b));
}

// True when `text` starts with exactly `word` (case ignored) followed by
// `stop` or the end; *rest then points at that character.
bool MatchWord(const char* text, const char* word, char stop, const char** rest) {
  while (*word != '\0') {
    if (*text == '\0' || !SameChar(*text, *word)) return false;
    ++text;
    ++word;
  }
  if (*text != '\0' && *text != stop) return false;
  *rest = text;
  return true;
}

}  // namespace

const char* FindToolType(const char* const* toolTypes, const char* typeName) {
  if (toolTypes == nullptr || typeName == nullptr) return nullptr;
  for (; *toolTypes != nullptr; ++toolTypes) {
    const char* rest = nullptr;
    if (MatchWord(*toolTypes, typeName, '=', &rest)) return *rest == '=' ? rest + 1 : rest;
  }
  return nullptr;
}

bool MatchToolValue(const char* typeString, const char* value) {
  if (typeString == nullptr || value == nullptr) return false;
  const char* alternative = typeString;
  for (;;) {
    const char* rest = nullptr;
    if (MatchWord(alternative, value, '|', &rest)) return true;
    while (*alternative != '\0' && *alternative != '|') ++alternative;
    if (*alternative == '\0') return false;
    ++alternative;
  }
}
