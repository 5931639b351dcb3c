#include "text/reset_text.h"

#include "platform/exec/memory.h"
#include "text/line_table.h"
#include "text/no_memory.h"
#include "text/render.h"
#include "text/text_file_name.h"
#include "text/text_record.h"

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
