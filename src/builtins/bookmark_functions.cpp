// The bookmarks of the main process, which lead from text to text.
#include "builtins/text_arguments.h"
#include "builtins/text_functions.h"
#include "frame/protocol/app_globals.h"
#include "frame/protocol/command_message.h"
#include "frame/protocol/send.h"
#include "text/record/text_record.h"

namespace {

// The user's slots are 1 to 12 in the language, 0 to 11 in main.
constexpr int32_t UserBookmarks = 12;

// Asks main to take this text, or the text of the mark, to slot `slot`:
// 1 when the mark was there, 0 for an empty slot or a text gone.
int32_t GoToBookmark(TextRecord* record, int32_t slot)
{
    if (!record->MainPort)
        return 0;
    return static_cast<int32_t>(SendToMainWait(record, CMD_GOTO_BOOKMARK, slot));
}

} // namespace

int32_t TraceBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    TextRecord* record = context->Text;
    const int32_t mark = stack->Values[slot].Integer;
    if (mark < -UserBookmarks || mark > UserBookmarks)
        return FailHandler(context, MessageId::IncorrectArgumentValue);
    if (mark > 0) {
        if (record->MainPort) {
            Bookmark bookmark{record->CursorLine, record->CursorColumn, mark - 1, record};
            SendToMainWait(record, CMD_SET_BOOKMARK, reinterpret_cast<intptr_t>(&bookmark));
        }
        return slot;
    }
    if (mark < 0)
        return IntegerResult(slot, GoToBookmark(record, -mark - 1), stack);
    GoToBookmark(record, ReturnBookmarkSlot);
    return IntegerResult(slot, 0, stack);
}
