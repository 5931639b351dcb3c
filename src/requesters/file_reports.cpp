#include "requesters/file_reports.h"

#include "platform/dos/errors.h"
#include "services/messages.h"
#include "text/record/text_record.h"

#include <atomic>
#include <cstdio>

namespace {

std::atomic<const FileDialogs*> Installed{nullptr};

// One line: the message with its line breaks as blanks, then the fault.
void PrintReport(TextRecord*, MessageId message, const char* fault)
{
    for (const char* c = GetString(message); *c; ++c)
        std::fputc(*c == '\n' ? ' ' : *c, stderr);
    if (fault)
        std::fprintf(stderr, ": %s: %s", GetString(MessageId::DosError), fault);
    std::fputc('\n', stderr);
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

int ConfirmRequester(TextRecord* record, MessageId question)
{
    return Dialogs().Confirm(record, question);
}

int AskTextFile(TextRecord* record, MessageId title, char* path)
{
    return Dialogs().AskFile(record, title, record->LastDirectory, record->FileName, path);
}
