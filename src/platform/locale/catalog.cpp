#include "platform/locale/catalog.h"

#include <cerrno>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "platform/locale/catalog_header.h"
#include "platform/locale/language.h"
#include "platform/locale/latin1.h"
#include "platform/locale/mo_file.h"
#include "platform/locale/printf_conversions.h"

struct Catalog {
    // Indexed by string number; an empty string means "not translated".
    std::vector<std::string> strings;
};

namespace {

// Catalogs are small; a larger file is not one of ours.
constexpr long MaxCatalogBytes = 16L * 1024 * 1024;
// Numbers above this are ignored rather than sizing the table by them.
constexpr long MaxStringNumber = 65535;

CatalogStatus ReadWholeFile(const char* path, std::string& image)
{
    std::FILE* file = std::fopen(path, "rb");
    if (file == nullptr)
        return errno == ENOENT || errno == ENOTDIR ? CatalogStatus::NotFound : CatalogStatus::Unreadable;
    CatalogStatus status = CatalogStatus::Opened;
    char buffer[8192];
    size_t got;
    while ((got = std::fread(buffer, 1, sizeof buffer, file)) > 0) {
        image.append(buffer, got);
        if (static_cast<long>(image.size()) > MaxCatalogBytes) {
            status = CatalogStatus::Malformed;
            break;
        }
    }
    if (status == CatalogStatus::Opened && std::ferror(file))
        status = CatalogStatus::Unreadable;
    std::fclose(file);
    return status;
}

// The string number in a msgctxt: plain decimal, no sign, no leading zero.
long ContextNumber(std::string_view context)
{
    if (context.empty() || context.size() > 5 || (context.size() > 1 && context[0] == '0'))
        return -1;
    long number = 0;
    for (const char c : context) {
        if (c < '0' || c > '9')
            return -1;
        number = number * 10 + (c - '0');
    }
    return number <= MaxStringNumber ? number : -1;
}

// The first form of a text whose plural forms are NUL-separated.
std::string_view FirstForm(std::string_view text)
{
    return text.substr(0, text.find('\0'));
}

CatalogStatus BuildCatalog(const std::vector<MoEntry>& entries, int version, Catalog& catalog)
{
    std::string_view header;
    bool hasHeader = false;
    for (const MoEntry& entry : entries) {
        if (entry.original.empty()) {
            header = FirstForm(entry.translation);
            hasHeader = true;
            break;
        }
    }
    if (!hasHeader || CatalogHeaderVersion(header) != version)
        return CatalogStatus::WrongVersion;
    const CatalogCharset charset = CatalogHeaderCharset(header);
    if (charset == CatalogCharset::Unknown)
        return CatalogStatus::UnknownCharset;

    for (const MoEntry& entry : entries) {
        const size_t separator = entry.original.find('\x04');
        if (separator == std::string_view::npos)
            continue;
        const long number = ContextNumber(entry.original.substr(0, separator));
        const std::string_view text = FirstForm(entry.translation);
        if (number < 0 || text.empty())
            continue;
        if (static_cast<size_t>(number) >= catalog.strings.size())
            catalog.strings.resize(static_cast<size_t>(number) + 1);
        std::string& slot = catalog.strings[static_cast<size_t>(number)];
        if (!slot.empty())
            continue;
        if (charset == CatalogCharset::Latin1)
            slot.assign(text);
        else if (!Utf8ToLatin1(text, slot))
            return CatalogStatus::Malformed;
    }
    return CatalogStatus::Opened;
}

Catalog* Finish(Catalog* catalog, CatalogStatus result, CatalogStatus* status)
{
    if (status != nullptr)
        *status = result;
    return catalog;
}

}  // namespace

Catalog* OpenCatalogFile(const char* path, int version, CatalogStatus* status)
{
    std::string image;
    const CatalogStatus read = ReadWholeFile(path, image);
    if (read != CatalogStatus::Opened)
        return Finish(nullptr, read, status);
    std::vector<MoEntry> entries;
    if (!ParseMoFile(image, entries))
        return Finish(nullptr, CatalogStatus::Malformed, status);
    auto* catalog = new Catalog;
    const CatalogStatus built = BuildCatalog(entries, version, *catalog);
    if (built != CatalogStatus::Opened) {
        delete catalog;
        return Finish(nullptr, built, status);
    }
    return Finish(catalog, CatalogStatus::Opened, status);
}

Catalog* OpenCatalog(const char* directory, const char* name, int version, CatalogStatus* status)
{
    if (directory == nullptr)
        return Finish(nullptr, CatalogStatus::NotFound, status);
    for (const std::string& language : CatalogLanguages(UserMessagesLocale())) {
        const std::string path = std::string(directory) + "/" + language + "/" + name + ".mo";
        CatalogStatus result;
        Catalog* catalog = OpenCatalogFile(path.c_str(), version, &result);
        if (result != CatalogStatus::NotFound)
            return Finish(catalog, result, status);
    }
    return Finish(nullptr, CatalogStatus::NotFound, status);
}

void CloseCatalog(Catalog* catalog)
{
    delete catalog;
}

const char* GetCatalogStr(const Catalog* catalog, long number, const char* defaultString)
{
    if (catalog == nullptr || number < 0 || static_cast<size_t>(number) >= catalog->strings.size())
        return defaultString;
    const std::string& text = catalog->strings[static_cast<size_t>(number)];
    if (text.empty() || !SamePrintfConversions(text.c_str(), defaultString != nullptr ? defaultString : ""))
        return defaultString;
    return text.c_str();
}
