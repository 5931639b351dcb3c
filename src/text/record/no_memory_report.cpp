#include "text/record/no_memory_report.h"
#include "services/messages.h"

#include <atomic>
#include <cstdio>

namespace {

std::atomic<NoMemoryReport> Installed{nullptr};

} // namespace

void SetNoMemoryReport(NoMemoryReport report)
{
    Installed.store(report);
}

void ReportNoMemory(TextRecord* record)
{
    if (NoMemoryReport report = Installed.load())
        report(record);
    else
        std::fprintf(stderr, "%s\n", GetString(MessageId::NotEnoughMemory));
}
