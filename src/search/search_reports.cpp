#include "search/search_reports.h"

#include "services/messages.h"

#include <atomic>
#include <cstdio>
#include <cstring>

namespace {

void PrintReport(TextRecord*, const char* text)
{
    for (const char* c = text; *c; ++c) {
        if (*c == '\n')
            std::fputs(" / ", stderr);
        else
            std::fputc(*c, stderr);
    }
    std::fputc('\n', stderr);
}

std::atomic<SearchReportFunction> Installed{nullptr};

void Show(TextRecord* record, const char* text)
{
    SearchReportFunction report = Installed.load();
    (report ? report : PrintReport)(record, text);
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
