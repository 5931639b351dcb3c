#pragma once
// One command run on a record as Evaluate gives it, written the way tests
// compare it: `7`, `"abc"` for a string, `#219` for an error, `?` for a
// result that is neither (which no command may give). The command's
// strings go with it; the error text it left in the record stays. Free of
// the test framework, so the fuzzers' long runs use it too.
#include <string>

struct TextRecord;

std::string RunCommand(TextRecord* record, const std::string& command);

// For a fuzzer: whether `shown` is a value, or an error of the language
// (an id from 205 to `lastError`).
bool IsValueOrLanguageError(const std::string& shown, int lastError);
