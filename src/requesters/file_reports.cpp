#include "requesters/file_reports.h"

#include "platform/dos/errors.h"
#include "requesters/file_requesters.h"
#include "requesters/message_requesters.h"
#include "services/messages.h"
#include "text/record/text_record.h"

#include <atomic>

namespace {

std::atomic<const FileDialogs*> Installed{nullptr};

void ShowReport(TextRecord* record, MessageId message, const char* fault)
{
    if (fault)
        MessageRequester(record, 3, GetString(message), GetString(MessageId::DosError), fault);
    else
        MessageRequester(record, 1, GetString(message));
}

int AskQuestion(TextRecord* record, MessageId question)
{
    return ConfirmRequester(record, GetString(question));
}

constexpr FileDialogs RequesterDialogs{ShowReport, AskQuestion, AskFileFrom};

const FileDialogs& Dialogs()
{
    const FileDialogs* dialogs = Installed.load();
    return dialogs ? *dialogs : RequesterDialogs;
}

} // namespace

void SetFileDialogs(const FileDialogs* dialogs)
{
    Installed.store(dialogs);
}

void ErrorRequester(TextRecord* record, MessageId message)
{
    Dialogs().Report(record, message, nullptr);
}

void DosErrorRequester(TextRecord* record, MessageId message)
{
    char fault[90];
    if (Fault(IoErr(), nullptr, fault, sizeof fault) <= 0)
        return;
    Dialogs().Report(record, message, fault);
}

void FaultRequester(TextRecord* record, MessageId message)
{
    char fault[90];
    const bool explained = Fault(IoErr(), nullptr, fault, sizeof fault) > 0;
    Dialogs().Report(record, message, explained ? fault : nullptr);
}

int ConfirmRequester(TextRecord* record, MessageId question)
{
    return Dialogs().Confirm(record, question);
}

int ConfirmPartialOverwrite(TextRecord* record)
{
    return Dialogs().Confirm(record, MessageId{69});
}

int AskTextFile(TextRecord* record, MessageId title, char* file, char* path)
{
    return Dialogs().AskFile(record, title, record->LastDirectory, file ? file : record->FileName, path);
}
