#include "text/record/tab_size.h"

#include "services/messages.h"
#include "text/record/text_record.h"

#include <cassert>
#include <cstdio>

void SetTabSize(TextRecord* record, int16_t size)
{
    assert(size >= MinTabSize && size <= MaxTabSize);
    record->TabSize = size;
    std::snprintf(record->TabLabel, sizeof record->TabLabel, GetString(MessageId::Tabulations), static_cast<long>(size));
}
