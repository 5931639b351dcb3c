#pragma once
// A text's side of the key map: the requests it sends to the main process
// and the running of a bound key.
#include <cstdint>

struct TextRecord;

// A copy of the text bound to `key` under `qualifier` (a QualifierIndex),
// freed by the caller with FreeVec; null when there is none. `pressed`
// upper-cases the stored text first. *locked (when given) tells whether a
// text holds the key map editing lock.
char* GetKeyMacro(TextRecord* record, uint8_t key, uint32_t qualifier, bool pressed, bool* locked = nullptr);

// Binds or unbinds through the main process; SetKey gives 1, or 0 when
// refused (another text edits the keys) or without memory.
int SetKey(TextRecord* record, uint8_t key, uint32_t qualifier, const char* macro);
void ClearKey(TextRecord* record, uint8_t key, uint32_t qualifier);

// Runs the macro bound to a pressed key. True when one was bound and ran;
// otherwise *locked tells whether the key map is being edited.
bool RunBoundKey(TextRecord* record, uint8_t key, uint32_t qualifier, bool* locked);
