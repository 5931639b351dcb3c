#include "text/tab_size.h"

#include "services/messages.h"
#include "text/text_record.h"

#include <cassert>
#include <cstdio>

void SetTabSize(TextRecord* record, int16_t size)
{
    assert(size >= MinTabSize && size <= MaxTabSize);
    record->TabSize = size;
    std::snprintf(record->TabLabel, sizeof record->TabLabel, GetString(MessageId{48}), static_cast<long>(size));
}
