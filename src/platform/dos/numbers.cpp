#include "platform/dos/numbers.h"

#include <climits>

long StrToLong(const char* string, long* value) {
    const char* p = string;
    while (*p == ' ' || *p == '\t') ++p;
    bool negative = false;
    if (*p == '+' || *p == '-') negative = *p++ == '-';
    if (*p < '0' || *p > '9') return -1;
    // Accumulated as a negative number, whose range holds LONG_MIN.
    long number = 0;
    bool overflow = false;
    for (; *p >= '0' && *p <= '9'; ++p) {
        int digit = *p - '0';
        if (number < (LONG_MIN + digit) / 10) overflow = true;
        if (!overflow) number = number * 10 - digit;
    }
    if (overflow)
        *value = negative ? LONG_MIN : LONG_MAX;
    else if (negative)
        *value = number;
    else
        *value = number == LONG_MIN ? LONG_MAX : -number;
    return p - string;
}
