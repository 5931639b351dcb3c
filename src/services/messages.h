#pragma once
// The texts the user sees: a message in the user's language when a catalog
// is open, else in built-in English.
//
// The catalog is opened once at start-up, before other processes run, and
// closed once at the end, after they have gone. In between it is read-only,
// so GetString takes no lock and every process may call it at once.

#include "services/message_id.h"

// Name and version of the program's catalog: <directory>/<lang>/tavrel.mo,
// taken only when its header declares "X-Catalog-Version: 7".
inline constexpr const char* MessageCatalogName = "tavrel";
inline constexpr int MessageCatalogVersion = 7;

// The text of `id`. With a catalog open, the translation of catalog string
// id - 1, unless it lacks one or its printf conversions differ from the
// built-in text's; otherwise the built-in text. Id 0 is never translated; an
// id out of range gives "". Never null, never fails. The text belongs to the
// catalog or the table: don't change or free it. It stays valid until
// CloseMessageCatalog.
const char* GetString(MessageId id);

// Opens the catalog for the user's language (from LC_ALL, LC_MESSAGES, LANG)
// under `directory`, normally PROGDIR:catalogs expanded. False, with the
// built-in texts serving, when there is no catalog for the language or it is
// unreadable, malformed or of another version: running in English is not a
// failure, so nothing is reported.
// Must not be called while a catalog is open.
bool OpenMessageCatalog(const char* directory);

// Closes the open catalog, if any; GetString gives built-in texts again.
// No other process may be calling GetString or holding its results.
void CloseMessageCatalog();
