#pragma once
// What a macro may ask about the program and its user: the version and
// the user's language. Handlers of the table of built-in functions, with
// no arguments.
#include "macro/macro_types.h"

// VERSION: the program's version as text, "5.00".
int32_t VersionFunction(int32_t slot, MacroStack* stack, MacroContext* context);
// LANGUAGE: the language of the user's locale ("de" for de_DE.UTF-8); ""
// when the locale names none.
int32_t LanguageFunction(int32_t slot, MacroStack* stack, MacroContext* context);
