#include "config/key_map.h"

#include "config/shared_copy.h"
#include "frame/protocol/app_globals.h"
#include "platform/exec/memory.h"
#include "platform/utility/strings.h"

#include <new>

const char* const QualifierNames[QualifierCount] = {
    "", "Shift", "Ctrl", "Alt", "Shift-Alt", "Shift-Ctrl", "Shift-Alt-Ctrl", "Alt-Ctrl"};

KeyMap GlobalKeyMap;

namespace {

constexpr uint32_t ShiftBits = 0x03;
constexpr uint32_t CtrlBit = 0x08;
constexpr uint32_t AltBits = 0x30;

KeyMapEntry* EntryOf(Node* node)
{
    return reinterpret_cast<KeyMapEntry*>(node);
}

bool IsCharacterKey(uint8_t key)
{
    return key > LastFunctionKey;
}

} // namespace

void InitKeyMap(KeyMap* map)
{
    NewList(&map->Entries);
}

uint32_t QualifierToIndex(uint32_t qualifier)
{
    const bool shift = (qualifier & ShiftBits) != 0;
    const bool ctrl = (qualifier & CtrlBit) != 0;
    const bool alt = (qualifier & AltBits) != 0;
    if (shift)
        return alt ? (ctrl ? 6 : 4) : (ctrl ? 5 : 1);
    if (alt)
        return ctrl ? 7 : 3;
    return ctrl ? 2 : 0;
}

KeyMapEntry* FindKeyEntry(const KeyMap* map, uint8_t key)
{
    const uint8_t wanted = ToLower(key);
    for (Node* node = map->Entries.First(); node; node = NextNode(node)) {
        if (EntryOf(node)->Key == wanted)
            return EntryOf(node);
    }
    return nullptr;
}

int SetKeyMacro(KeyMap* map, const KeyRequest* request)
{
    if (request->Qualifier >= QualifierCount)
        return 0;
    char* text = SharedCopy(request->Macro ? request->Macro : "");
    if (!text)
        return 0;
    KeyMapEntry* entry = FindKeyEntry(map, request->Key);
    if (!entry) {
        void* memory = AllocVec(sizeof(KeyMapEntry), MEMF_SHARED | MEMF_CLEAR);
        if (!memory) {
            FreeVec(text);
            return 0;
        }
        entry = new (memory) KeyMapEntry;
        entry->Key = ToLower(request->Key);
        AddTail(&map->Entries, &entry->Links);
    }
    FreeVec(entry->Macro[request->Qualifier]);
    entry->Macro[request->Qualifier] = text;
    return 1;
}

void ClearKeyMacro(KeyMap* map, uint8_t key, uint32_t qualifier)
{
    KeyMapEntry* entry = FindKeyEntry(map, key);
    if (!entry || qualifier >= QualifierCount)
        return;
    FreeVec(entry->Macro[qualifier]);
    entry->Macro[qualifier] = nullptr;
}

void FreeKeyMap(KeyMap* map)
{
    while (Node* node = RemHead(&map->Entries)) {
        KeyMapEntry* entry = EntryOf(node);
        for (char*& text : entry->Macro)
            FreeVec(text);
        FreeVec(entry);
    }
}

char** ListKeysForQualifier(uint32_t qualifier, const KeyMap* localMap, int32_t* count)
{
    *count = 0;
    if (qualifier >= QualifierCount)
        return nullptr;
    auto boundGlobally = [qualifier](const KeyMapEntry* entry) {
        return IsCharacterKey(entry->Key) && entry->Macro[qualifier];
    };
    auto boundOnlyLocally = [qualifier](const KeyMapEntry* entry) {
        if (!IsCharacterKey(entry->Key) || !entry->Macro[qualifier])
            return false;
        const KeyMapEntry* global = FindKeyEntry(&GlobalKeyMap, entry->Key);
        return !global || !global->Macro[qualifier];
    };
    int32_t found = 0;
    for (Node* node = GlobalKeyMap.Entries.First(); node; node = NextNode(node))
        found += boundGlobally(EntryOf(node)) ? 1 : 0;
    if (localMap) {
        for (Node* node = localMap->Entries.First(); node; node = NextNode(node))
            found += boundOnlyLocally(EntryOf(node)) ? 1 : 0;
    }
    if (found == 0)
        return nullptr;

    // The pointers, their terminator, then two bytes per key.
    const size_t pointers = (size_t(found) + 1) * sizeof(char*);
    auto* block = static_cast<char**>(AllocVec(pointers + size_t(found) * 2, MEMF_SHARED | MEMF_CLEAR));
    if (!block)
        return nullptr;
    char* names = reinterpret_cast<char*>(block) + pointers;
    int32_t at = 0;
    auto add = [&](const KeyMapEntry* entry) {
        names[at * 2] = static_cast<char>(entry->Key);
        block[at] = names + at * 2;
        ++at;
    };
    for (Node* node = GlobalKeyMap.Entries.First(); node; node = NextNode(node))
        if (boundGlobally(EntryOf(node)))
            add(EntryOf(node));
    if (localMap) {
        for (Node* node = localMap->Entries.First(); node; node = NextNode(node))
            if (boundOnlyLocally(EntryOf(node)))
                add(EntryOf(node));
    }
    *count = found;
    return block;
}
