#pragma once
// The list of texts, linked through the NextText and PreviousText fields
// that every TextRecord begins with. The list never owns its records.
// Only the main process changes it, under TextListLock held exclusively;
// other processes walk it holding the lock shared.
#include <cstddef>

struct TextRecord;

struct TextList {
    TextRecord* First = nullptr;
    TextRecord* Last = nullptr;
};

void InitTextList(TextList* list);
void AddTextTail(TextList* list, TextRecord* record);
// Texts start on threads of their own and register in whatever order they
// get there; this puts a record before the first one opened after it, so
// the list stays in the order the texts were started.
void AddTextInOpeningOrder(TextList* list, TextRecord* record);
// The record must be in the list.
void RemoveText(TextList* list, TextRecord* record);
bool ContainsText(const TextList* list, const TextRecord* record);
// The record at a 0-based position, or null past the end.
TextRecord* TextAt(const TextList* list, long position);
long CountTexts(const TextList* list);
