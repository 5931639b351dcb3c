#include "requesters/command_requesters.h"

#include "frame/protocol/command_message.h"
#include "frame/protocol/send.h"
#include "frame/protocol/text_name_list.h"
#include "platform/dos/errors.h"
#include "platform/dos/filenotes.h"
#include "platform/dos/paths.h"
#include "platform/exec/memory.h"
#include "requesters/file_requesters.h"
#include "requesters/input_requesters.h"
#include "requesters/message_requesters.h"
#include "services/messages.h"
#include "text/record/line_access.h"
#include "text/record/line_buffers.h"
#include "text/record/tab_size.h"
#include "text/record/text_record.h"

#include <cstdio>
#include <cstring>
#include <string>
#include <sys/sysinfo.h>
#include <vector>

namespace {

// A message with one number or string filled in.
template <typename Value>
std::string Formatted(int id, Value value)
{
    char line[128];
    std::snprintf(line, sizeof line, GetString(MessageId{id}), value);
    return line;
}

long CharacterCount(const TextRecord* record)
{
    long count = 0;
    for (int32_t line = 0; line < record->LineCount; ++line) {
        if (line != record->CursorLine) {
            count += static_cast<long>(std::strlen(StoredLineText(record, line)));
            continue;
        }
        const char* text = GetLineText(record, line);
        long length = static_cast<long>(std::strlen(text));
        while (length > 0 && text[length - 1] == ' ')
            --length;
        count += length;
    }
    return count;
}

} // namespace

void TabulationsCommand(TextRecord* record)
{
    int value = record->TabSize;
    if (InputRequesterId(record, MessageId{100}, nullptr, &value) != 1)
        return;
    if (value >= MinTabSize && value <= MaxTabSize)
        SetTabSize(record, static_cast<int16_t>(value));
    else
        MessageRequester(record, 1, GetString(MessageId{101}));
}

void MaxLineLengthCommand(TextRecord* record)
{
    int value = record->MaxLineLength;
    if (InputRequesterId(record, MessageId{49}, nullptr, &value) != 1)
        return;
    if (SetMaxLineLength(record, value) == LineLengthChange::CannotReduce)
        MessageRequester(record, 1, GetString(MessageId{103}));
}

void FilenoteCommand(TextRecord* record)
{
    char path[JoinedPathSize];
    if (!AskFileFrom(record, MessageId{86}, record->LastDirectory, record->FileName, path))
        return;
    char note[MaxCommentLength + 1] = "";
    if (!GetComment(path, note, sizeof note)) {
        DosErrorRequester(record, GetString(MessageId{86}));
        return;
    }
    int limit = static_cast<int>(MaxCommentLength);
    if (InputRequesterId(record, MessageId{87}, note, &limit) == 1 && !SetComment(path, note))
        DosErrorRequester(record, GetString(MessageId{86}));
}

void InformationRequester(TextRecord* record)
{
    struct sysinfo memory { };
    sysinfo(&memory);
    long unit = static_cast<long>(memory.mem_unit);
    std::string size = Formatted(156, CharacterCount(record));
    char fontLine[128];
    std::snprintf(fontLine, sizeof fontLine, GetString(MessageId{158}), record->FontName ? record->FontName : "",
        static_cast<long>(record->FontSize));
    std::string port = record->HostPort && record->HostPort->mp_Node.ln_Name
        ? Formatted(157, record->HostPort->mp_Node.ln_Name)
        : GetString(MessageId{140});
    std::string fast = Formatted(155, static_cast<long>(memory.freeram) * unit);
    std::string swap = Formatted(246, static_cast<long>(memory.freeram + memory.freeswap) * unit);
    MessageRequester(record, 9, "Tavrel Version 5.00", GetString(MessageId{154}), " ", size.c_str(), fontLine,
        port.c_str(), " ", fast.c_str(), swap.c_str());
}

void SelectTextCommand(TextRecord* record)
{
    auto* list = reinterpret_cast<char*>(SendToMainWait(record, CMD_LIST_TEXTS, 1));
    if (!list)
        return;
    std::vector<const char*> labels;
    for (int row = 0; row < TextNameCount(list); ++row)
        labels.push_back(TextNameRow(list, row));
    int chosen = ChoiceRequester(record, static_cast<int>(labels.size()), GetString(MessageId{193}), labels.data());
    FreeVec(list);
    if (chosen == 1) {
        SendToMain(record, CMD_NEW_TEXT, 0);
    } else if (chosen > 1) {
        SelectText(record, chosen - 1);
    }
}

void SelectText(TextRecord* record, long position)
{
    intptr_t answer = SendToMainWait(record, CMD_SELECT_TEXT, position);
    if (answer != 0)
        MessageRequester(record, 1, GetString(MessageId{static_cast<int>(answer)}));
}
