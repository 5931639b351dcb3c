#pragma once
// The user's locale as a record, for what a macro asks of it: the language.

#include <string>

struct Locale {
    // The language part of the locale's name, as the catalog folders are
    // named: "de" for "de_DE.UTF-8@euro". Empty for "C" and "POSIX", which
    // name no language, and for a name that isn't well formed.
    std::string loc_LanguageName;
};

// The locale of that name ("de_DE.UTF-8"), or for null the user's own, as
// the messages take it (LC_ALL, LC_MESSAGES, LANG). Null only when memory
// is short.
Locale* OpenLocale(const char* name);

// Frees the record; null is allowed.
void CloseLocale(Locale* locale);
