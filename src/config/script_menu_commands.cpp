#include "config/script_menu_commands.h"

#include "config/menu_messages.h"
#include "config/menu_table.h"
#include "frame/protocol/app_globals.h"
#include "frame/protocol/command_message.h"
#include "frame/protocol/send.h"
#include "platform/display/input_codes.h"
#include "platform/display/intuition.h"
#include "platform/dos/paths.h"
#include "platform/dos/volumes.h"
#include "platform/exec/memory.h"
#include "platform/exec/semaphores.h"
#include "platform/utility/strings.h"
#include "requesters/file_requesters.h"
#include "requesters/input_requesters.h"
#include "text/record/settings.h"
#include "text/record/text_record.h"

namespace {

const ScriptActions* Actions = nullptr;

constexpr int ScriptCommandLimit = 127;
constexpr int ScriptLabelLimit = 12;

bool ControlHeld(const TextRecord* record)
{
    return (record->LastQualifier & IEQUALIFIER_CONTROL) != 0;
}

// A script file chosen in the requester titled "ARexx command", starting
// in `drawer`; its full name into `path` (JoinedPathSize bytes).
bool ChooseScriptFile(TextRecord* record, char* drawer, char* file, char* path)
{
    if (!FileRequesterId(record, MessageId{136}, drawer, file))
        return false;
    JoinPath(drawer, file, path);
    return path[0] != '\0';
}

} // namespace

void SetScriptActions(const ScriptActions* actions)
{
    Actions = actions;
}

void CallScriptCommand(TextRecord* record)
{
    if (!Actions) {
        DisplayBeep(nullptr);
        return;
    }
    if (ControlHeld(record)) {
        Actions->Load(record, record->ArexxCommandText);
        return;
    }
    int limit = ScriptCommandLimit;
    if (InputRequesterId(record, MessageId{136}, record->ArexxCommandText, &limit) != 1)
        return;
    if (record->ArexxCommandText[0] != '\0') {
        Actions->Run(record, record->ArexxCommandText);
        return;
    }
    char drawer[FileDirectorySize];
    ObtainSemaphoreShared(&Globals.ScriptPathLock);
    Strlcpy(drawer, ExpandVolumePath(Globals.ScriptPath).c_str(), sizeof drawer);
    ReleaseSemaphore(&Globals.ScriptPathLock);
    char file[FileNameSize] = "";
    char path[JoinedPathSize];
    if (ChooseScriptFile(record, drawer, file, path))
        Actions->Run(record, path);
}

void ScriptItemCommand(TextRecord* record)
{
    if (!Actions) {
        DisplayBeep(nullptr);
        return;
    }
    const int index = ITEMNUM(static_cast<MenuNumber>(record->LastCode)) - FirstScriptItem;
    if (index < 0 || index >= ScriptItemCount)
        return;
    auto* label = reinterpret_cast<char*>(SendToMainWait(record, CMD_GET_SCRIPT_ENTRY, index));
    if (label && !(record->LastQualifier & IEQUALIFIER_SHIFT)) {
        if (ControlHeld(record))
            Actions->Load(record, label);
        else
            Actions->Run(record, label);
        FreeVec(label);
        return;
    }
    ScriptEntry entry{};
    Strlcpy(entry.Label, label ? label : "", ScriptLabelLimit);
    FreeVec(label);
    int limit = ScriptLabelLimit;
    if (InputRequesterId(record, MessageId{138}, entry.Label, &limit) != 1)
        return;
    if (entry.Label[0] == '\0') {
        char drawer[FileDirectorySize] = "";
        char file[FileNameSize] = "";
        char path[JoinedPathSize];
        if (!ChooseScriptFile(record, drawer, file, path))
            return;
        Strlcpy(entry.Label, FilePart(path), ScriptLabelLimit);
    }
    entry.Index = index;
    SendToMainWait(record, CMD_SET_SCRIPT_ENTRY, reinterpret_cast<intptr_t>(&entry));
}
