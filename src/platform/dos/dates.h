#pragma once
// Dates as text in the platform's own form: a day name ("Monday"), a date
// dd-mmm-yy ("07-Mar-26") and a time hh:mm:ss ("09:05:00"). Day and month
// names are English whatever the user's language, so a date a macro wrote
// reads back the same on every desktop. Comparing two stamps belongs here
// too.
#include "platform/dos/datestamp.h"

// A buffer of this size holds any of the three texts with its terminator.
constexpr int LEN_DATSTRING = 16;

struct DateTime {
    struct DateStamp dat_Stamp;
    char* dat_StrDay;  // LEN_DATSTRING bytes for the day name, or null
    char* dat_StrDate; // LEN_DATSTRING bytes for the date, or null
    char* dat_StrTime; // LEN_DATSTRING bytes for the time, or null
};

// Writes the texts of dat_Stamp into the buffers that are given. False,
// with nothing written, when the minute or the tick lies outside its range
// or the day outside the years 1 to 9999. The year shows as its last two
// digits.
bool DateToStr(struct DateTime* dt);

// Reads dat_StrDate and dat_StrTime into dat_Stamp; a null text leaves its
// part of the stamp as it was, and the tick becomes that of the seconds
// read. A date is a day of 1 or 2 digits, '-', the first three letters of
// an English month (case ignored), '-', and a year of 2 digits (78 to 99
// in the 1900s, 00 to 77 in the 2000s) or 4 digits (0001 to 9999). A time
// is hh:mm or hh:mm:ss, each part of 1 or 2 digits. Blanks around a text
// are allowed, nothing else. False, with the stamp unchanged, for anything
// else, a day the month doesn't have included.
bool StrToDate(struct DateTime* dt);

// 0 when the stamps are equal, positive when `first` is the earlier one,
// negative when it is the later one. Days that differ give their difference,
// so a caller may read whole days from it.
long CompareDates(const struct DateStamp* first, const struct DateStamp* second);
