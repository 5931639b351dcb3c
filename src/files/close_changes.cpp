#include "files/close_changes.h"

#include "files/save_text.h"
#include "platform/dos/paths.h"
#include "requesters/file_requesters.h"
#include "requesters/message_requesters.h"
#include "services/messages.h"
#include "text/record/text_record.h"

bool AskAboutChanges(TextRecord* record)
{
    const char* labels[] = {GetString(MessageId{93}), GetString(MessageId{95}), GetString(MessageId::Cancel)};
    int answer = ChoiceRequester(record, 3, GetString(MessageId{70}), labels);
    if (answer == 1)
        return true;
    if (answer != 2)
        return false;
    char path[JoinedPathSize];
    if (!AskFileFrom(record, MessageId{81}, record->FileDirectory, record->FileName, path))
        return false;
    SaveTextChecked(record, path);
    return !record->Modified;
}
