#pragma once
// The key map: macro texts bound to the twelve function keys and to
// character keys pressed with a qualifier. One map serves the whole
// program (GlobalKeyMap, changed by the main process alone); the
// preferences window keeps a private one of the same kind for its edits.
//
// A map is a list of entries in the order their keys were first bound; an
// entry holds one text per QualifierIndex. An entry whose texts have all
// gone stays in the list until the map is freed, so the order of the keys
// never changes while the program runs.
#include "platform/exec/lists.h"

#include <cstdint>

struct KeyRequest;

constexpr int QualifierCount = 8;
constexpr uint8_t LastFunctionKey = 12; // keys 1 to 12 are F1 to F12

// The combinations of Shift, Alt and Ctrl, by index: none, Shift, Ctrl,
// Alt, Shift-Alt, Shift-Ctrl, Shift-Alt-Ctrl, Alt-Ctrl.
extern const char* const QualifierNames[QualifierCount];

struct KeyMapEntry {
    Node Links;
    uint8_t Key = 0;                        // 1 to 12, or a lower-case character
    char* Macro[QualifierCount] = {};       // null: no binding (AllocVec'd)
};

struct KeyMap {
    List Entries; // of KeyMapEntry; NewList before first use
};

extern KeyMap GlobalKeyMap;

// Empties a map that was never used (NewList).
void InitKeyMap(KeyMap* map);

// The index of the Shift (0x03), Ctrl (0x08) and Alt (0x30) bits of an
// input qualifier word; every other bit is ignored.
uint32_t QualifierToIndex(uint32_t qualifier);

// The entry of `key` (compared lower-cased), or null.
KeyMapEntry* FindKeyEntry(const KeyMap* map, uint8_t key);

// Binds request->Macro (copied) to request->Key under
// request->Qualifier, replacing the text bound there. 1, or 0 without
// memory, when the map is left as it was.
int SetKeyMacro(KeyMap* map, const KeyRequest* request);

// Frees the text of `key` under `qualifier`; nothing if there is none.
void ClearKeyMacro(KeyMap* map, uint8_t key, uint32_t qualifier);

// Frees every text and every entry; the map is empty afterwards.
void FreeKeyMap(KeyMap* map);

// The keys of the "Choose a key" list under `qualifier`: the character
// keys of GlobalKeyMap with a text there, then those of `localMap` with a
// text there and none in the global map. One AllocVec block holding a
// null-terminated array of pointers to one-character strings, freed by the
// caller with FreeVec; null when no key qualifies or without memory.
// *count gets the number of keys.
char** ListKeysForQualifier(uint32_t qualifier, const KeyMap* localMap, int32_t* count);
