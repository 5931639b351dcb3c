#include "requesters/no_memory.h"

#include <cstdio>

void NoMemoryRequester(TextRecord*)
{
    std::fputs("Not enough memory\n", stderr);
}
