#pragma once
// Counting days in the proleptic Gregorian calendar, shared by the date
// stamps and the dates as text.

// Days from 1970-01-01 to a date (month 1 to 12), by counting in 400-year
// eras that start in March.
constexpr long DaysFromCivil(long year, long month, long day)
{
    year -= month <= 2;
    const long era = (year >= 0 ? year : year - 399) / 400;
    const long yearOfEra = year - era * 400;
    const long dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    const long dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * 146097 + dayOfEra - 719468;
}

// The reverse of DaysFromCivil.
constexpr void CivilFromDays(long days, long* year, long* month, long* day)
{
    days += 719468;
    const long era = (days >= 0 ? days : days - 146096) / 146097;
    const long dayOfEra = days - era * 146097;
    const long yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const long dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const long shifted = (5 * dayOfYear + 2) / 153;
    *day = dayOfYear - (153 * shifted + 2) / 5 + 1;
    *month = shifted < 10 ? shifted + 3 : shifted - 9;
    *year = yearOfEra + era * 400 + (*month <= 2);
}

// Day 0 of a date stamp, 1978-01-01, counted from 1970-01-01.
constexpr long StampEpochDays = DaysFromCivil(1978, 1, 1);
