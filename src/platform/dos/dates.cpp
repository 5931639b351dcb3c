#include "platform/dos/dates.h"

#include "platform/dos/civil_days.h"
#include "platform/utility/strings.h"

namespace {

const char* const DayNames[7] = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
const char* const MonthNames[12] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                    "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

// Stamp days of 0001-01-01 and 9999-12-31: the years a date can show.
constexpr long FirstDay = DaysFromCivil(1, 1, 1) - StampEpochDays;
constexpr long LastDay = DaysFromCivil(9999, 12, 31) - StampEpochDays;

bool IsBlank(char c)
{
    return c == ' ' || c == '\t';
}

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

// Reads from `least` to `most` digits at *text, moving past them.
bool ReadDigits(const char** text, int least, int most, long* value, int* count)
{
    *value = 0;
    *count = 0;
    while (*count < most && IsDigit(**text)) {
        *value = *value * 10 + (**text - '0');
        ++*text;
        ++*count;
    }
    return *count >= least;
}

bool ReadNumber(const char** text, int least, int most, long* value)
{
    int count;
    return ReadDigits(text, least, most, value, &count);
}

bool Expect(const char** text, char c)
{
    if (**text != c)
        return false;
    ++*text;
    return true;
}

const char* SkipBlanks(const char* text)
{
    while (IsBlank(*text))
        ++text;
    return text;
}

bool IsLeapYear(long year)
{
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

long DaysInMonth(long year, long month)
{
    static const long days[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && IsLeapYear(year) ? 29 : days[month - 1];
}

// Month 1 to 12 from its three letters, 0 when none matches.
long ReadMonth(const char** text)
{
    for (long month = 1; month <= 12; ++month) {
        if (Strnicmp(*text, MonthNames[month - 1], 3) == 0) {
            *text += 3;
            return month;
        }
    }
    return 0;
}

bool ParseDate(const char* text, long* stampDays)
{
    text = SkipBlanks(text);
    long day, month, year;
    int yearDigits;
    if (!ReadNumber(&text, 1, 2, &day) || !Expect(&text, '-') || (month = ReadMonth(&text)) == 0
        || !Expect(&text, '-') || !ReadDigits(&text, 2, 4, &year, &yearDigits) || yearDigits == 3)
        return false;
    if (*SkipBlanks(text) != '\0')
        return false;
    if (yearDigits == 2)
        year += year >= 78 ? 1900 : 2000;
    if (year < 1 || day < 1 || day > DaysInMonth(year, month))
        return false;
    *stampDays = DaysFromCivil(year, month, day) - StampEpochDays;
    return true;
}

bool ParseTime(const char* text, long* minute, long* tick)
{
    text = SkipBlanks(text);
    long hours, minutes, seconds = 0;
    if (!ReadNumber(&text, 1, 2, &hours) || !Expect(&text, ':') || !ReadNumber(&text, 1, 2, &minutes))
        return false;
    if (*text == ':') {
        ++text;
        if (!ReadNumber(&text, 1, 2, &seconds))
            return false;
    }
    if (*SkipBlanks(text) != '\0' || hours > 23 || minutes > 59 || seconds > 59)
        return false;
    *minute = hours * 60 + minutes;
    *tick = seconds * TICKS_PER_SECOND;
    return true;
}

// Writes a value from 0 to 99 as two digits; the place behind them.
char* PutTwoDigits(char* out, long value)
{
    out[0] = static_cast<char>('0' + value / 10);
    out[1] = static_cast<char>('0' + value % 10);
    return out + 2;
}

} // namespace

bool DateToStr(struct DateTime* dt)
{
    const struct DateStamp& stamp = dt->dat_Stamp;
    if (stamp.ds_Days < FirstDay || stamp.ds_Days > LastDay || stamp.ds_Minute < 0
        || stamp.ds_Minute >= 24 * 60 || stamp.ds_Tick < 0 || stamp.ds_Tick >= 60 * TICKS_PER_SECOND)
        return false;
    if (dt->dat_StrDay)
        Strlcpy(dt->dat_StrDay, DayNames[(stamp.ds_Days % 7 + 7) % 7], LEN_DATSTRING);
    if (dt->dat_StrDate) {
        long year, month, day;
        CivilFromDays(stamp.ds_Days + StampEpochDays, &year, &month, &day);
        char* out = PutTwoDigits(dt->dat_StrDate, day);
        *out++ = '-';
        for (int letter = 0; letter < 3; ++letter)
            *out++ = MonthNames[month - 1][letter];
        *out++ = '-';
        *PutTwoDigits(out, year % 100) = '\0';
    }
    if (dt->dat_StrTime) {
        char* out = PutTwoDigits(dt->dat_StrTime, stamp.ds_Minute / 60);
        *out++ = ':';
        out = PutTwoDigits(out, stamp.ds_Minute % 60);
        *out++ = ':';
        *PutTwoDigits(out, stamp.ds_Tick / TICKS_PER_SECOND) = '\0';
    }
    return true;
}

bool StrToDate(struct DateTime* dt)
{
    long days = dt->dat_Stamp.ds_Days;
    long minute = dt->dat_Stamp.ds_Minute;
    long tick = dt->dat_Stamp.ds_Tick;
    if (dt->dat_StrDate && !ParseDate(dt->dat_StrDate, &days))
        return false;
    if (dt->dat_StrTime && !ParseTime(dt->dat_StrTime, &minute, &tick))
        return false;
    dt->dat_Stamp = {days, minute, tick};
    return true;
}

long CompareDates(const struct DateStamp* first, const struct DateStamp* second)
{
    if (first->ds_Days != second->ds_Days)
        return second->ds_Days - first->ds_Days;
    if (first->ds_Minute != second->ds_Minute)
        return second->ds_Minute - first->ds_Minute;
    return second->ds_Tick - first->ds_Tick;
}
