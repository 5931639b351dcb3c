#pragma once
// Text given to the headless backend by tests and scripts, which are
// written in UTF-8, turned into the ISO 8859-1 bytes the program sees.
#include <string>

// UTF-8 forms of ISO 8859-1 characters become one byte each; any other
// byte stays as it is.
std::string Latin1FromUtf8(const std::string& text);
