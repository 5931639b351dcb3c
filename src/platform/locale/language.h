#pragma once
// The user's language for messages, from the environment.

#include <string>
#include <vector>

// The locale for messages: the first of LC_ALL, LC_MESSAGES, LANG that is
// set and not empty; null when none is.
const char* UserMessagesLocale();

// The catalog folders to try for a locale name
// language[_territory][.codeset][@modifier], most specific first:
// "de_DE.UTF-8@euro" gives de_DE@euro, de_DE, de@euro, de. None for null,
// "", "C", "POSIX", "C.<codeset>", or a name whose parts hold anything but
// letters, digits and '-' (so a name can never lead out of the catalog
// directory).
std::vector<std::string> CatalogLanguages(const char* locale);
