#include "services/rexx/run_script.h"

#include "files/load_text.h"
#include "frame/protocol/app_globals.h"
#include "frame/protocol/command_message.h"
#include "frame/protocol/send.h"
#include "platform/dos/file_io.h"
#include "platform/dos/paths.h"
#include "platform/exec/semaphores.h"
#include "platform/rexx/rexx_message.h"
#include "requesters/file_reports.h"
#include "requesters/no_memory.h"
#include "services/message_id.h"
#include "services/rexx/script_message.h"
#include "services/rexx/scripts_out.h"
#include "text/record/line_access.h"

#include <cstring>

void RunScript(TextRecord* record, const char* name)
{
    int error = 0;
    RexxMsg* message = NewScriptMessage(record, name, &error);
    if (!message) {
        if (error == int(MessageId::NotEnoughMemory))
            NoMemoryRequester(record);
        else
            ErrorRequester(record, MessageId{error == 130 ? 130 : 135});
        return;
    }
    message->rm_Action = RXCOMM;
    if (!SendToScriptServer(record, message)) {
        ErrorRequester(record, MessageId{137});
        FreeScriptMessage(message);
    }
}

void LoadMacroFile(TextRecord* record, const char* name)
{
    char directory[ScriptPathSize];
    ObtainSemaphoreShared(&Globals.ScriptPathLock);
    std::memcpy(directory, Globals.ScriptPath, sizeof directory);
    ReleaseSemaphore(&Globals.ScriptPathLock);
    char path[JoinedPathSize];
    JoinPath(directory, name, path);
    if (KindOfFile(path) != FileKind::Regular) {
        if (std::strlen(path) + sizeof ".Tavrel" > sizeof path) {
            ErrorRequester(record, MessageId{139});
            return;
        }
        std::strcat(path, ".Tavrel");
        const int fd = OpenForReading(path);
        if (fd < 0) {
            DosErrorRequester(record, MessageId{139});
            return;
        }
        CloseFile(fd);
    }
    if (IsOneBlankLine(record))
        LoadTextChecked(record, path, false);
    else
        SendToMainWait(record, CMD_NEW_TEXT, reinterpret_cast<intptr_t>(path));
}
