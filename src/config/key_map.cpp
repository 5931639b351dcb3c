#include "config/key_map.h"

#include "config/shared_copy.h"
#include "frame/protocol/app_globals.h"
#include "platform/exec/memory.h"
#include "platform/utility/strings.h"

#include <new>
#include <vector>

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
    // The character keys bound with the qualifier: the global ones, then
    // those only the local map binds.
    std::vector<const KeyMapEntry*> keys;
    for (Node* node = GlobalKeyMap.Entries.First(); node; node = NextNode(node)) {
        const KeyMapEntry* entry = EntryOf(node);
        if (IsCharacterKey(entry->Key) && entry->Macro[qualifier])
            keys.push_back(entry);
    }
    if (localMap) {
        for (Node* node = localMap->Entries.First(); node; node = NextNode(node)) {
            const KeyMapEntry* entry = EntryOf(node);
            if (!IsCharacterKey(entry->Key) || !entry->Macro[qualifier])
                continue;
            const KeyMapEntry* global = FindKeyEntry(&GlobalKeyMap, entry->Key);
            if (!global || !global->Macro[qualifier])
                keys.push_back(entry);
        }
    }
    if (keys.empty())
        return nullptr;

    // The pointers, their terminator, then two bytes per key.
    const size_t found = keys.size();
    const size_t pointers = (found + 1) * sizeof(char*);
    auto* block = static_cast<char**>(AllocVec(pointers + found * 2, MEMF_SHARED | MEMF_CLEAR));
    if (!block)
        return nullptr;
    char* names = reinterpret_cast<char*>(block) + pointers;
    for (size_t at = 0; at < found; ++at) {
        names[at * 2] = static_cast<char>(keys[at]->Key);
        block[at] = names + at * 2;
    }
    *count = static_cast<int32_t>(found);
    return block;
}
