#include "search/search_reports.h"

#include "requesters/message_requesters.h"
#include "services/messages.h"

#include <atomic>
#include <cstdio>
#include <cstring>

namespace {

// A report is one message requester; its line breaks part its lines.
void ShowInRequester(TextRecord* record, const char* text)
{
    MessageRequester(record, 1, text);
}

std::atomic<SearchReportFunction> Installed{nullptr};

void Show(TextRecord* record, const char* text)
{
    SearchReportFunction report = Installed.load();
    (report ? report : ShowInRequester)(record, text);
}

} // namespace

void SetSearchReport(SearchReportFunction report)
{
    Installed.store(report);
}

void ReportNotFound(TextRecord* record, const char* find)
{
    const char* notFound = GetString(MessageId::StringNotFound);
    char text[NotFoundShown + 4 + 256];
    if (std::strlen(find) > NotFoundShown)
        std::snprintf(text, sizeof text, "%.*s...\n%s", NotFoundShown, find, notFound);
    else
        std::snprintf(text, sizeof text, "%s\n%s", find, notFound);
    Show(record, text);
}

void ReportReplaced(TextRecord* record, long count)
{
    char text[256];
    std::snprintf(text, sizeof text, GetString(MessageId::StringsReplaced), count);
    Show(record, text);
}
