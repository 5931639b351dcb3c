#include "files/close_changes.h"

#include "files/save_text.h"
#include "platform/utility/strings.h"
#include "requesters/file_requesters.h"
#include "requesters/message_requesters.h"
#include "services/messages.h"
#include "text/text_record.h"

bool AskAboutChanges(TextRecord* record)
{
    const char* labels[] = {GetString(MessageId{93}), GetString(MessageId{95}), GetString(MessageId::Cancel)};
    int answer = ChoiceRequester(record, 3, GetString(MessageId{70}), labels);
    if (answer == 1)
        return true;
    if (answer != 2)
        return false;
    char drawer[FileDirectorySize];
    char file[FileNameSize];
    char path[256];
    Strlcpy(drawer, record->FileDirectory, sizeof drawer);
    Strlcpy(file, record->FileName, sizeof file);
    if (!AskFile(record, MessageId{81}, drawer, file, path))
        return false;
    SaveTextChecked(record, path);
    return !record->Modified;
}
