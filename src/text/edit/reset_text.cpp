#include "text/edit/reset_text.h"

#include "frame/protocol/text_names.h"
#include "platform/exec/memory.h"
#include "requesters/no_memory.h"
#include "text/record/line_table.h"
#include "text/record/text_record.h"
#include "text/render/render.h"

bool ResetText(TextRecord* record, const char* name)
{
    record->TextState &= static_cast<uint16_t>(~BlockMarked);
    MemPool* pool = CreateLinePool();
    if (pool == nullptr) {
        NoMemoryRequester(record);
    } else {
        EmptyLineTable(record);
        DeletePool(record->LinePool);
        record->LinePool = pool;
        record->TopLine = 0;
        record->LeftColumn = 0;
        record->CursorLine = 0;
        record->CursorColumn = 0;
        ClearTextArea(record);
    }
    // The loader names the text only after opening the file, which refuses
    // any name too long for the record: a refusal here keeps the old name.
    SetTextFileName(record, name);
    record->PartOfFile = 0;
    return pool != nullptr;
}
