#pragma once
// Message catalogs: GNU gettext .mo files, one per language, read-only once
// opened. A catalog is a table of strings by number:
//  - each message's msgctxt is its number in decimal ("0", "1", ...); the
//    msgid, usually the original text, is for translators only and is not
//    looked at; only the first form of a plural entry is used;
//  - the header entry (empty msgid, no msgctxt) must hold the field
//    "X-Catalog-Version: N", and N must equal the version asked for;
//  - texts come out in ISO 8859-1: a catalog in UTF-8 is converted when
//    opened (characters beyond 0xFF become '?'), one in ISO-8859-1 or ASCII
//    is taken as it is, any other charset is refused.
// Lookups take no lock: any number of threads may call GetCatalogStr on an
// open catalog. Opening and closing are the owner's business.

struct Catalog;

enum class CatalogStatus {
    Opened,
    NotFound,        // no file for the user's language, or no language set
    Unreadable,      // the file exists but can't be read
    Malformed,       // not a well-formed .mo file, or bad UTF-8
    WrongVersion,    // no version field, or another version
    UnknownCharset,  // a charset other than UTF-8, ISO-8859-1 or ASCII
};

// Opens <directory>/<lang>/<name>.mo for the user's language, taken from the
// first of LC_ALL, LC_MESSAGES, LANG that is set; "de_DE.UTF-8@euro" tries
// de_DE@euro, de_DE, de@euro, de, and the first file that exists is the one
// opened or refused. Null on failure, with the reason in *status if given;
// a null directory is NotFound.
Catalog* OpenCatalog(const char* directory, const char* name, int version,
                     CatalogStatus* status = nullptr);

// Opens the .mo file at `path`; as OpenCatalog.
Catalog* OpenCatalogFile(const char* path, int version, CatalogStatus* status = nullptr);

// Frees the catalog and its strings; null is allowed.
void CloseCatalog(Catalog* catalog);

// The string numbered `number`, or `defaultString` when the catalog is null,
// has no such string, or the string's printf conversions differ from those
// of `defaultString` (so a translation can never change a format's
// arguments). The result stays valid until the catalog is closed.
const char* GetCatalogStr(const Catalog* catalog, long number, const char* defaultString);
