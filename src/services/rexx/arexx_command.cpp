#include "services/rexx/arexx_command.h"

#include "frame/window/busy.h"
#include "frame/window/status.h"
#include "frame/window/text_window.h"
#include "macro/command_pool.h"
#include "macro/evaluator.h"
#include "platform/rexx/rexx_message.h"
#include "platform/rexx/script_server.h"
#include "requesters/file_reports.h"
#include "requesters/message_requesters.h"
#include "services/messages.h"
#include "services/rexx/scripts_out.h"
#include "text/record/text_record.h"
#include "text/render/render.h"

#include <cstdio>
#include <cstring>

namespace {

void TakeAnswer(TextRecord* record, RexxMsg* message)
{
    if (message->rm_Result1 != 0) {
        if (message->rm_Result2 == 1) {
            ErrorRequester(record, MessageId{135});
        } else if (message->rm_Result2 != 0) {
            char line[64];
            std::snprintf(line, sizeof line, GetString(MessageId{134}), static_cast<long>(message->rm_Result2));
            MessageRequester(record, 2, line, GetString(MessageId{133}));
        }
    }
    FreeRexxMsg(message);
    ScriptAnswered(record);
    if (record->PendingArexxCount == 0) {
        UnlockTextWindow(record);
        record->TextState = static_cast<uint16_t>(record->TextState & ~Busy);
        if (record->Window)
            UpdateStatusTitle(record);
    }
}

void RunCommand(TextRecord* record, RexxMsg* message)
{
    ShowBusyPointer(record);
    DrawCursor(record, false);
    message->rm_Result1 = 0;
    message->rm_Result2 = 0;
    record->MacroScratch[0] = '\0';
    CommandPool pool;
    MacroValue value{};
    const char* command = message->rm_Args[0] ? message->rm_Args[0] : "";
    if (const int error = Evaluate(record, command, &value, &pool, message)) {
        MessageRequester(record, 3, GetString(MessageId{136}), record->MacroScratch, GetString(MessageId{error}));
        message->rm_Result1 = 20;
    } else {
        char number[16];
        const char* text = value.String;
        if (value.Kind == KindInteger) {
            std::snprintf(number, sizeof number, "%ld", static_cast<long>(value.Integer));
            text = number;
        }
        message->rm_Result1 = 10;
        if (char* result = CreateArgstring(text, long(std::strlen(text)))) {
            message->rm_Result2 = reinterpret_cast<intptr_t>(result);
            message->rm_Result1 = 0;
        }
    }
    record->MacroScratch[0] = '\0';
    FreeCommandPool(&pool);
    if (record->Window) {
        ClearBusyPointer(record);
        DrawCursor(record, true);
    }
    ReplyRexxMsg(message);
}

} // namespace

void RunArexxCommand(TextRecord* record, RexxMsg* message)
{
    if (message->rm_Node.mn_Node.ln_Type == NT_REPLYMSG)
        TakeAnswer(record, message);
    else
        RunCommand(record, message);
}
