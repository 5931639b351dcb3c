#include "text/no_memory.h"

#include "files/file_reports.h"

void NoMemoryRequester(TextRecord* record)
{
    ErrorRequester(record, MessageId::NotEnoughMemory);
}
