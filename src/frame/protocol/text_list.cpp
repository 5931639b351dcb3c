#include "frame/protocol/text_list.h"

#include "text/record/text_record.h"

void InitTextList(TextList* list)
{
    list->First = nullptr;
    list->Last = nullptr;
}

void AddTextTail(TextList* list, TextRecord* record)
{
    record->NextText = nullptr;
    record->PreviousText = list->Last;
    if (list->Last)
        list->Last->NextText = record;
    else
        list->First = record;
    list->Last = record;
}

void AddTextInOpeningOrder(TextList* list, TextRecord* record)
{
    TextRecord* later = list->First;
    while (later && later->OpeningNumber <= record->OpeningNumber)
        later = later->NextText;
    if (!later) {
        AddTextTail(list, record);
        return;
    }
    record->NextText = later;
    record->PreviousText = later->PreviousText;
    if (later->PreviousText)
        later->PreviousText->NextText = record;
    else
        list->First = record;
    later->PreviousText = record;
}

void RemoveText(TextList* list, TextRecord* record)
{
    if (record->PreviousText)
        record->PreviousText->NextText = record->NextText;
    else
        list->First = record->NextText;
    if (record->NextText)
        record->NextText->PreviousText = record->PreviousText;
    else
        list->Last = record->PreviousText;
    record->NextText = nullptr;
    record->PreviousText = nullptr;
}

bool ContainsText(const TextList* list, const TextRecord* record)
{
    for (TextRecord* text = list->First; text; text = text->NextText)
        if (text == record)
            return true;
    return false;
}

TextRecord* TextAt(const TextList* list, long position)
{
    if (position < 0)
        return nullptr;
    TextRecord* text = list->First;
    for (; text && position > 0; --position)
        text = text->NextText;
    return text;
}

long CountTexts(const TextList* list)
{
    long count = 0;
    for (TextRecord* text = list->First; text; text = text->NextText)
        ++count;
    return count;
}
