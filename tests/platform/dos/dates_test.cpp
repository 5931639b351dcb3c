// Dates as text: known stamps and their texts, round trips over a century
// of days and a whole day of seconds, and the texts that must be refused.
#include "platform/dos/dates.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct Texts {
    bool shown;
    std::string day, date, time;
};

Texts Show(struct DateStamp stamp)
{
    char day[LEN_DATSTRING] = "-", date[LEN_DATSTRING] = "-", time[LEN_DATSTRING] = "-";
    struct DateTime dt{stamp, day, date, time};
    const bool shown = DateToStr(&dt);
    return {shown, day, date, time};
}

// The stamp read from a date and a time text (either may be null) over
// `start`; `read` is false when they were refused.
struct Read {
    bool read;
    struct DateStamp stamp;
};

Read Parse(const char* date, const char* time, struct DateStamp start = {})
{
    struct DateTime dt{start, nullptr, const_cast<char*>(date), const_cast<char*>(time)};
    const bool read = StrToDate(&dt);
    return {read, dt.dat_Stamp};
}

TEST(Dates, KnownStampsShowTheirDayDateAndTime)
{
    struct Row {
        struct DateStamp stamp;
        const char *day, *date, *time;
    } rows[] = {
        {{0, 0, 0}, "Sunday", "01-Jan-78", "00:00:00"},
        {{-1, 1439, 2999}, "Saturday", "31-Dec-77", "23:59:59"},
        {{8094, 61, 50 * 7 + 49}, "Tuesday", "29-Feb-00", "01:01:07"},
        {{17858, 754, 0}, "Monday", "23-Nov-26", "12:34:00"},
        {{-722084, 0, 0}, "Monday", "01-Jan-01", "00:00:00"},
        {{2929974, 0, 0}, "Friday", "31-Dec-99", "00:00:00"},
    };
    for (const Row& row : rows) {
        const Texts texts = Show(row.stamp);
        EXPECT_TRUE(texts.shown) << row.date;
        EXPECT_EQ(texts.day, row.day);
        EXPECT_EQ(texts.date, row.date);
        EXPECT_EQ(texts.time, row.time);
    }
}

TEST(Dates, StampsOutsideTheirRangesAreNotShown)
{
    const struct DateStamp bad[] = {
        {0, -1, 0}, {0, 1440, 0}, {0, 0, -1}, {0, 0, 3000}, {-722085, 0, 0}, {2929975, 0, 0},
    };
    for (const struct DateStamp& stamp : bad) {
        const Texts texts = Show(stamp);
        EXPECT_FALSE(texts.shown) << stamp.ds_Days << " " << stamp.ds_Minute << " " << stamp.ds_Tick;
        EXPECT_EQ(texts.day + texts.date + texts.time, "---");
    }
}

TEST(Dates, EveryDayAndSecondReadsBackAsShown)
{
    // 1978 to 2077 is what two-digit years name.
    for (long days = 0; days <= 36524; ++days) {
        const Texts texts = Show({days, 0, 0});
        const Read read = Parse(texts.date.c_str(), nullptr);
        ASSERT_TRUE(read.read) << texts.date;
        ASSERT_EQ(read.stamp.ds_Days, days) << texts.date;
    }
    for (long second = 0; second < 24 * 60 * 60; ++second) {
        const Texts texts = Show({0, second / 60, second % 60 * TICKS_PER_SECOND});
        const Read read = Parse(nullptr, texts.time.c_str());
        ASSERT_TRUE(read.read) << texts.time;
        ASSERT_EQ(read.stamp.ds_Minute * 60 + read.stamp.ds_Tick / TICKS_PER_SECOND, second) << texts.time;
    }
}

TEST(Dates, DatesAndTimesAsUsersWriteThem)
{
    struct Row {
        const char* date;
        const char* time;
        long days, minute, tick;
    } rows[] = {
        {"1-jan-78", nullptr, 0, 0, 0},
        {" 01-JAN-1978\t", nullptr, 0, 0, 0},
        {"31-Dec-77", nullptr, 36524, 0, 0},
        {"31-dec-1977", nullptr, -1, 0, 0},
        {"29-Feb-00", nullptr, 8094, 0, 0},
        {"29-Feb-2000", "1:1:7", 8094, 61, 7 * TICKS_PER_SECOND},
        {"01-Jan-0001", "23:59", -722084, 1439, 0},
        {"31-Dec-9999", "0:00:59", 2929974, 0, 59 * TICKS_PER_SECOND},
        {nullptr, " 7:05 ", 0, 425, 0},
    };
    for (const Row& row : rows) {
        const Read read = Parse(row.date, row.time);
        EXPECT_TRUE(read.read) << row.date << " " << row.time;
        EXPECT_EQ(read.stamp.ds_Days, row.days) << row.date;
        EXPECT_EQ(read.stamp.ds_Minute, row.minute) << row.time;
        EXPECT_EQ(read.stamp.ds_Tick, row.tick) << row.time;
    }
}

TEST(Dates, WrongTextsAreRefusedAndChangeNothing)
{
    const char* const dates[] = {
        "", " ", "1-Jan", "1-Jan-", "00-Jan-26", "32-Jan-26", "29-Feb-25", "29-Feb-1900", "31-Apr-26",
        "1-Jam-26", "1-Ja-26", "1-Janu-26", "1-Jan-2", "1-Jan-202", "1-Jan-20266", "1-Jan-0000", "1/Jan/26",
        "1 Jan 26", "1-Jan-26x", "123-Jan-26", "-1-Jan-26", "Monday", "01-Jan-26 12:00",
    };
    const struct DateStamp start{5, 6, 7};
    for (const char* date : dates) {
        const Read read = Parse(date, "12:00", start);
        EXPECT_FALSE(read.read) << '"' << date << '"';
        EXPECT_EQ(CompareDates(&read.stamp, &start), 0) << date;
    }
    const char* const times[] = {
        "", "12", "12:", ":30", "24:00", "12:60", "12:00:60", "12:00:", "1:2:3:4", "123:00", "12:345", "12.00", "-1:00",
    };
    for (const char* time : times) {
        const Read read = Parse("01-Jan-26", time, start);
        EXPECT_FALSE(read.read) << '"' << time << '"';
        EXPECT_EQ(CompareDates(&read.stamp, &start), 0) << time;
    }
}

} // namespace
