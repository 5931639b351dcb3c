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
#include <string>

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
        FreeRexxMsg(message);
    }
}

void LoadMacroFile(TextRecord* record, const char* name)
{
    char directory[ScriptPathSize];
    ObtainSemaphoreShared(&Globals.ScriptPathLock);
    std::memcpy(directory, Globals.ScriptPath, sizeof directory);
    ReleaseSemaphore(&Globals.ScriptPathLock);
    char joined[JoinedPathSize];
    JoinPath(directory, name, joined);
    // The name as given, then with the extension, as scripts are named on
    // this system too: in lower case.
    std::string path;
    for (const char* extension : {"", ".Tavrel", ".tavrel"}) {
        path = SystemPath((std::string(joined) + extension).c_str());
        if (KindOfFile(path.c_str()) == FileKind::Regular)
            break;
    }
    const int fd = OpenForReading(path.c_str());
    if (fd < 0) {
        DosErrorRequester(record, MessageId{139});
        return;
    }
    CloseFile(fd);
    if (IsOneBlankLine(record))
        LoadTextChecked(record, path.c_str(), false);
    else
        SendToMainWait(record, CMD_NEW_TEXT, reinterpret_cast<intptr_t>(path.c_str()));
}
