#include "platform/locale/catalog_header.h"

#include <cctype>
#include <string>

namespace {

std::string_view Trim(std::string_view text)
{
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t'))
        text.remove_prefix(1);
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t' || text.back() == '\r'))
        text.remove_suffix(1);
    return text;
}

bool EqualIgnoringCase(std::string_view a, std::string_view b)
{
    if (a.size() != b.size())
        return false;
    for (size_t i = 0; i < a.size(); ++i) {
        if (std::tolower(static_cast<unsigned char>(a[i]))
            != std::tolower(static_cast<unsigned char>(b[i])))
            return false;
    }
    return true;
}

// "UTF-8", "utf8", "ISO_8859-1" ... reduced to lower-case letters and digits.
std::string CharsetKey(std::string_view name)
{
    std::string key;
    for (const char c : name) {
        if (std::isalnum(static_cast<unsigned char>(c)))
            key += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return key;
}

}  // namespace

std::optional<std::string_view> FindHeaderField(std::string_view header, std::string_view name)
{
    while (!header.empty()) {
        const size_t end = header.find('\n');
        const std::string_view line = header.substr(0, end);
        const size_t colon = line.find(':');
        if (colon != std::string_view::npos && EqualIgnoringCase(Trim(line.substr(0, colon)), name))
            return Trim(line.substr(colon + 1));
        if (end == std::string_view::npos)
            break;
        header.remove_prefix(end + 1);
    }
    return std::nullopt;
}

std::optional<int> CatalogHeaderVersion(std::string_view header)
{
    const auto value = FindHeaderField(header, "X-Catalog-Version");
    if (!value || value->empty() || value->size() > 9)
        return std::nullopt;
    int version = 0;
    for (const char c : *value) {
        if (c < '0' || c > '9')
            return std::nullopt;
        version = version * 10 + (c - '0');
    }
    return version;
}

CatalogCharset CatalogHeaderCharset(std::string_view header)
{
    const auto contentType = FindHeaderField(header, "Content-Type");
    if (!contentType)
        return CatalogCharset::Latin1;
    std::string lowered(*contentType);
    for (char& c : lowered)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    const size_t at = lowered.find("charset=");
    if (at == std::string::npos)
        return CatalogCharset::Latin1;
    const std::string_view name = std::string_view(lowered).substr(at + 8);
    const std::string key = CharsetKey(name.substr(0, name.find(';')));
    if (key == "utf8")
        return CatalogCharset::Utf8;
    if (key == "iso88591" || key == "latin1" || key == "ascii" || key == "usascii"
        || key == "ansix341968")
        return CatalogCharset::Latin1;
    return CatalogCharset::Unknown;
}
