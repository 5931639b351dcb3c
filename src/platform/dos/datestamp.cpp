#include "platform/dos/datestamp.h"

#include "platform/dos/errors.h"
#include "platform/dos/volumes.h"

#include <cerrno>
#include <string>
#include <sys/stat.h>

namespace {

// Days from 1970-01-01 to a date of the proleptic Gregorian calendar
// (month 1 to 12), by counting in 400-year eras that start in March.
long DaysFromCivil(long year, long month, long day) {
    year -= month <= 2;
    long era = (year >= 0 ? year : year - 399) / 400;
    long yearOfEra = year - era * 400;
    long dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    long dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * 146097 + dayOfEra - 719468;
}

// The reverse of DaysFromCivil.
void CivilFromDays(long days, long* year, long* month, long* day) {
    days += 719468;
    long era = (days >= 0 ? days : days - 146096) / 146097;
    long dayOfEra = days - era * 146097;
    long yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    long dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    long shifted = (5 * dayOfYear + 2) / 153;
    *day = dayOfYear - (153 * shifted + 2) / 5 + 1;
    *month = shifted < 10 ? shifted + 3 : shifted - 9;
    *year = yearOfEra + era * 400 + (*month <= 2);
}

const long EpochDays = DaysFromCivil(1978, 1, 1);

} // namespace

struct DateStamp* DateStamp(struct DateStamp* stamp) {
    timespec now;
    clock_gettime(CLOCK_REALTIME, &now);
    TimeToDateStamp(now.tv_sec, stamp);
    stamp->ds_Tick += now.tv_nsec / (1000000000L / TICKS_PER_SECOND);
    return stamp;
}

void TimeToDateStamp(time_t time, struct DateStamp* stamp) {
    tm local;
    localtime_r(&time, &local);
    stamp->ds_Days = DaysFromCivil(local.tm_year + 1900L, local.tm_mon + 1L, local.tm_mday) - EpochDays;
    stamp->ds_Minute = local.tm_hour * 60L + local.tm_min;
    // A leap second shows as second 60; it is kept within the minute.
    stamp->ds_Tick = (local.tm_sec < 60 ? local.tm_sec : 59) * TICKS_PER_SECOND;
}

bool DateStampToTime(const struct DateStamp* stamp, time_t* time) {
    if (stamp->ds_Minute < 0 || stamp->ds_Minute >= 24 * 60 || stamp->ds_Tick < 0 ||
        stamp->ds_Tick >= 60 * TICKS_PER_SECOND) {
        SetIoErr(ERROR_BAD_NUMBER);
        return false;
    }
    long year, month, day;
    CivilFromDays(stamp->ds_Days + EpochDays, &year, &month, &day);
    tm local{};
    local.tm_year = static_cast<int>(year - 1900);
    local.tm_mon = static_cast<int>(month - 1);
    local.tm_mday = static_cast<int>(day);
    local.tm_hour = static_cast<int>(stamp->ds_Minute / 60);
    local.tm_min = static_cast<int>(stamp->ds_Minute % 60);
    local.tm_sec = static_cast<int>(stamp->ds_Tick / TICKS_PER_SECOND);
    local.tm_isdst = -1;
    *time = mktime(&local);
    return true;
}

bool FileDateStamp(const char* path, struct DateStamp* stamp) {
    struct stat info;
    if (stat(ExpandVolumePath(path).c_str(), &info) != 0) {
        SetIoErrFromErrno(errno);
        return false;
    }
    TimeToDateStamp(info.st_mtim.tv_sec, stamp);
    stamp->ds_Tick += info.st_mtim.tv_nsec / (1000000000L / TICKS_PER_SECOND);
    return true;
}

long CompareDates(const struct DateStamp* first, const struct DateStamp* second) {
    if (first->ds_Days != second->ds_Days) return second->ds_Days - first->ds_Days;
    if (first->ds_Minute != second->ds_Minute) return second->ds_Minute - first->ds_Minute;
    return second->ds_Tick - first->ds_Tick;
}
