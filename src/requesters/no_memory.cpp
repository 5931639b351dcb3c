#include "requesters/no_memory.h"

#include "requesters/file_reports.h"

void NoMemoryRequester(TextRecord* record)
{
    ErrorRequester(record, MessageId::NotEnoughMemory);
}
