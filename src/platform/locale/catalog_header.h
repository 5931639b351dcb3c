#pragma once
// Reading a catalog's header: the translation of the empty msgid, lines of
// "Name: value" as written in a PO file's first entry.

#include <optional>
#include <string_view>

// The value of field `name` (case ignored), blanks around it removed; none
// when the header has no such line.
std::optional<std::string_view> FindHeaderField(std::string_view header, std::string_view name);

// The version a header declares in "X-Catalog-Version: N"; none when the
// field is missing or is not a plain decimal number.
std::optional<int> CatalogHeaderVersion(std::string_view header);

enum class CatalogCharset { Latin1, Utf8, Unknown };

// The charset named by the header's Content-Type ("text/plain;
// charset=UTF-8"). ISO-8859-1 and ASCII are Latin1; a header without a
// charset is taken as Latin1 too, since its bytes are used as they are.
CatalogCharset CatalogHeaderCharset(std::string_view header);
