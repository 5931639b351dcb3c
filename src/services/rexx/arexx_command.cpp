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
#include <string>
#include <vector>

namespace {

constexpr int MostTraceLines = 4;

// "ARexx : error n", what the interpreter said about it, and "Macro
// execution halted": the interpreter's lines tell the user where and why.
void ReportScriptError(TextRecord* record, const RexxMsg* message)
{
    char first[64];
    std::snprintf(first, sizeof first, GetString(MessageId{134}), static_cast<long>(message->rm_Result2));
    std::vector<std::string> trace;
    for (const char* at = message->rm_Trace; at && *at && trace.size() < MostTraceLines;) {
        const char* end = std::strchr(at, '\n');
        trace.emplace_back(at, end ? size_t(end - at) : std::strlen(at));
        at = end ? end + 1 : at + std::strlen(at);
    }
    const char* lines[MostTraceLines + 2] = {first};
    for (size_t line = 0; line < trace.size(); ++line)
        lines[line + 1] = trace[line].c_str();
    const int count = int(trace.size()) + 2;
    lines[count - 1] = GetString(MessageId{133});
    MessageRequester(record, count, lines[0], lines[1], lines[2], lines[3], lines[4], lines[5]);
}

void TakeAnswer(TextRecord* record, RexxMsg* message)
{
    if (message->rm_Result1 != 0) {
        if (message->rm_Result2 == 1)
            ErrorRequester(record, MessageId{135});
        else if (message->rm_Result2 != 0)
            ReportScriptError(record, message);
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
