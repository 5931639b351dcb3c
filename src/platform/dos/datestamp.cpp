#include "platform/dos/datestamp.h"

#include "platform/dos/civil_days.h"
#include "platform/dos/errors.h"
#include "platform/dos/volumes.h"

#include <cerrno>
#include <string>
#include <sys/stat.h>

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
    stamp->ds_Days = DaysFromCivil(local.tm_year + 1900L, local.tm_mon + 1L, local.tm_mday) - StampEpochDays;
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
    CivilFromDays(stamp->ds_Days + StampEpochDays, &year, &month, &day);
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
