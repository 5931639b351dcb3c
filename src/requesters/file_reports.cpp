#include "requesters/file_reports.h"

#include "platform/dos/errors.h"
#include "services/messages.h"
#include "text/record/text_record.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <string>

namespace {

std::atomic<const FileDialogs*> Installed{nullptr};

// One line: the message with its line breaks as blanks, then the fault.
// Written in one piece, so that reports of texts running at once don't mix.
void PrintReport(TextRecord*, MessageId message, const char* fault)
{
    std::string line = GetString(message);
    std::replace(line.begin(), line.end(), '\n', ' ');
    if (fault)
        line = line + ": " + GetString(MessageId::DosError) + ": " + fault;
    line += '\n';
    std::fputs(line.c_str(), stderr);
}

int RefuseQuestion(TextRecord* record, MessageId question)
{
    PrintReport(record, question, nullptr);
    return -1;
}

int CancelFileRequest(TextRecord*, MessageId, const char*, const char*, char*)
{
    return 0;
}

constexpr FileDialogs ConsoleDialogs{PrintReport, RefuseQuestion, CancelFileRequest};

const FileDialogs& Dialogs()
{
    const FileDialogs* dialogs = Installed.load();
    return dialogs ? *dialogs : ConsoleDialogs;
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

int AskTextFile(TextRecord* record, MessageId title, char* path)
{
    return Dialogs().AskFile(record, title, record->LastDirectory, record->FileName, path);
}
