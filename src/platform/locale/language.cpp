#include "platform/locale/language.h"

#include <cctype>
#include <cstdlib>
#include <string_view>

namespace {

bool IsPlainPart(std::string_view part)
{
    for (const char c : part) {
        if (!std::isalnum(static_cast<unsigned char>(c)) && c != '-')
            return false;
    }
    return true;
}

}  // namespace

const char* UserMessagesLocale()
{
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* value = std::getenv(variable);
        if (value != nullptr && *value != '\0')
            return value;
    }
    return nullptr;
}

std::vector<std::string> CatalogLanguages(const char* locale)
{
    if (locale == nullptr)
        return {};
    std::string_view name = locale;
    std::string_view modifier;
    if (const size_t at = name.find('@'); at != std::string_view::npos) {
        modifier = name.substr(at + 1);
        name = name.substr(0, at);
    }
    name = name.substr(0, name.find('.'));
    std::string_view territory;
    if (const size_t underscore = name.find('_'); underscore != std::string_view::npos) {
        territory = name.substr(underscore + 1);
        name = name.substr(0, underscore);
    }
    if (name.empty() || name == "C" || name == "POSIX" || !IsPlainPart(name)
        || !IsPlainPart(territory) || !IsPlainPart(modifier))
        return {};
    const std::string language(name);
    std::vector<std::string> candidates;
    if (!territory.empty() && !modifier.empty())
        candidates.push_back(language + "_" + std::string(territory) + "@" + std::string(modifier));
    if (!territory.empty())
        candidates.push_back(language + "_" + std::string(territory));
    if (!modifier.empty())
        candidates.push_back(language + "@" + std::string(modifier));
    candidates.push_back(language);
    return candidates;
}
