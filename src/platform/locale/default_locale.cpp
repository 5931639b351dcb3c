#include "platform/locale/default_locale.h"

#include "platform/locale/language.h"

#include <new>

Locale* OpenLocale(const char* name)
{
    auto* locale = new (std::nothrow) Locale;
    if (locale == nullptr)
        return nullptr;
    // The candidates end with the bare language.
    const std::vector<std::string> languages = CatalogLanguages(name != nullptr ? name : UserMessagesLocale());
    if (!languages.empty())
        locale->loc_LanguageName = languages.back();
    return locale;
}

void CloseLocale(Locale* locale)
{
    delete locale;
}
