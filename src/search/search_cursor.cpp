#include "search/search_cursor.h"

#include "search/search_engine.h"
#include "text/record/line_strings.h"
#include "text/record/text_position.h"
#include "text/record/text_record.h"

EditLineStore MoveToMatch(TextRecord* record, const SearchMatch& match)
{
    if (match.Line != record->CursorLine) {
        EditLineStore store = StoreEditLine(record);
        if (store != EditLineStore::Failed)
            LoadEditLine(record, LineIndex(match.Line), ColumnIndex(match.Column));
        return store;
    }
    record->EditLength = TrimLineEnd(record->EditLine);
    record->CursorColumn = match.Column;
    return EditLineStore::Unchanged;
}
