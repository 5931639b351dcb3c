#pragma once
// Date stamps: a moment as days since 1 January 1978, minutes past midnight
// and ticks of 1/50 second within the minute, all in local time, since the
// editor shows dates as the desktop's clock does. The function DateStamp
// hides the bare type name: callers write `struct DateStamp`.
#include <ctime>

constexpr long TICKS_PER_SECOND = 50;

struct DateStamp {
    long ds_Days = 0;   // days since 1978-01-01; negative before it
    long ds_Minute = 0; // 0 to 1439
    long ds_Tick = 0;   // 0 to 2999
};

// Fills `stamp` with the present moment and gives it back.
struct DateStamp* DateStamp(struct DateStamp* stamp);

// The stamp of a calendar time, in local time; ticks are whole seconds.
void TimeToDateStamp(time_t time, struct DateStamp* stamp);

// The calendar time of a stamp read as local time, ticks cut to the second.
// False (ERROR_BAD_NUMBER) when minute or tick lie outside their ranges.
// In the hour that a change of daylight saving time skips or repeats, the
// system's choice of offset applies.
bool DateStampToTime(const struct DateStamp* stamp, time_t* time);

// The modification time of a file (volume names allowed). False when the
// file can't be examined; IoErr tells why.
bool FileDateStamp(const char* path, struct DateStamp* stamp);
