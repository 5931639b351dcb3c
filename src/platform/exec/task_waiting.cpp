#include "platform/exec/task_waiting.h"

#include "platform/exec/task_record.h"

bool TaskIsWaiting(Task* task)
{
    TaskRecord* record = Record(task);
    uint32_t mask = record->sigWait.load();
    return mask != 0 && (record->sigRecvd.load() & mask) == 0;
}
