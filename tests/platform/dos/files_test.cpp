#include "platform/dos/dates.h"
#include "platform/dos/datestamp.h"
#include "platform/dos/errors.h"
#include "platform/dos/filenotes.h"
#include "temp_dir.h"

#include <gtest/gtest.h>

#include <string>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <utime.h>

namespace {

class FileNotes : public ::testing::Test {
protected:
    void SetUp() override { dir_.Touch("file.txt"); }
    TempDir dir_;
    std::string file_ = dir_.path + "/file.txt";
};

TEST_F(FileNotes, RoundTripEmptyingAndLimits) {
    if (setxattr(file_.c_str(), "user.probe", "x", 1, 0) != 0) GTEST_SKIP() << "no user attributes here";
    char note[100];
    ASSERT_TRUE(GetComment(file_.c_str(), note, sizeof note));
    EXPECT_STREQ(note, "");

    ASSERT_TRUE(SetComment(file_.c_str(), "first draft, \xe9t\xe9"));
    ASSERT_TRUE(GetComment(file_.c_str(), note, sizeof note));
    EXPECT_STREQ(note, "first draft, \xe9t\xe9");

    std::string longest(MaxCommentLength, 'n');
    ASSERT_TRUE(SetComment(file_.c_str(), longest.c_str()));
    ASSERT_TRUE(GetComment(file_.c_str(), note, sizeof note));
    EXPECT_EQ(note, longest);
    char small[6];
    ASSERT_TRUE(GetComment(file_.c_str(), small, sizeof small));
    EXPECT_STREQ(small, "nnnnn");

    EXPECT_FALSE(SetComment(file_.c_str(), (longest + "n").c_str()));
    EXPECT_EQ(IoErr(), ERROR_COMMENT_TOO_BIG);

    // Emptied twice: the second time there is nothing to remove.
    ASSERT_TRUE(SetComment(file_.c_str(), ""));
    ASSERT_TRUE(SetComment(file_.c_str(), ""));
    ASSERT_TRUE(GetComment(file_.c_str(), note, sizeof note));
    EXPECT_STREQ(note, "");

    // A note set by another program beyond our limit is read in part.
    std::string foreign(300, 'f');
    ASSERT_EQ(setxattr(file_.c_str(), "user.comment", foreign.data(), foreign.size(), 0), 0);
    ASSERT_TRUE(GetComment(file_.c_str(), note, sizeof note));
    EXPECT_EQ(std::string(note), foreign.substr(0, MaxCommentLength));
}

TEST_F(FileNotes, MissingFileOrUnsupportedFileSystemFails) {
    char note[100] = "stale";
    EXPECT_FALSE(GetComment((dir_.path + "/none").c_str(), note, sizeof note));
    EXPECT_EQ(IoErr(), ERROR_OBJECT_NOT_FOUND);
    EXPECT_STREQ(note, "");
    EXPECT_FALSE(SetComment((dir_.path + "/none").c_str(), "x"));
    // /proc takes no user attributes.
    EXPECT_FALSE(SetComment("/proc/self/status", "x"));
    EXPECT_NE(IoErr(), 0);
}

void Zone(const char* tz) {
    setenv("TZ", tz, 1);
    tzset();
}

TEST(DateStamps, KnownMomentsInUtcAndAnotherZone) {
    struct Moment {
        const char* zone;
        time_t time;
        long days, minute, tick;
    };
    const Moment moments[] = {
        {"UTC0", 252460800, 0, 0, 0},             // 1978-01-01 00:00:00
        {"UTC0", 252460800 - 1, -1, 1439, 2950},  // the second before
        {"UTC0", 951782400, 8094, 0, 0},          // 2000-02-29, a leap day
        {"UTC0", 1718114645, 16963, 14 * 60 + 4, 5 * 50}, // 2024-06-11 14:04:05
        {"EST5", 252460800, -1, 19 * 60, 0},      // five hours behind UTC
        {"<+0530>-5:30", 252460800, 0, 5 * 60 + 30, 0},
    };
    for (const Moment& m : moments) {
        Zone(m.zone);
        struct DateStamp stamp;
        TimeToDateStamp(m.time, &stamp);
        EXPECT_EQ(stamp.ds_Days, m.days) << m.zone << ' ' << m.time;
        EXPECT_EQ(stamp.ds_Minute, m.minute) << m.zone << ' ' << m.time;
        EXPECT_EQ(stamp.ds_Tick, m.tick) << m.zone << ' ' << m.time;
        time_t back = 0;
        ASSERT_TRUE(DateStampToTime(&stamp, &back));
        EXPECT_EQ(back, m.time) << m.zone;
    }
    // Round trips from 1900 to 2100, one moment every 37 days and some hours.
    Zone("UTC0");
    for (time_t t = -2208988800; t < 4102444800; t += 37 * 86400 + 3 * 3600 + 17) {
        struct DateStamp stamp;
        TimeToDateStamp(t, &stamp);
        time_t back = 0;
        ASSERT_TRUE(DateStampToTime(&stamp, &back));
        ASSERT_EQ(back, t);
    }
}

TEST(DateStamps, NowFileDatesAndComparison) {
    struct DateStamp before, now, after;
    TimeToDateStamp(time(nullptr) - 1, &before);
    DateStamp(&now);
    TimeToDateStamp(time(nullptr) + 2, &after);
    EXPECT_GT(CompareDates(&before, &now), 0);
    EXPECT_LT(CompareDates(&after, &now), 0);
    EXPECT_EQ(CompareDates(&now, &now), 0);
    EXPECT_GE(now.ds_Tick, 0);
    EXPECT_LT(now.ds_Tick, 3000);
    struct DateStamp dayA{100, 5, 0}, dayB{103, 0, 0};
    EXPECT_EQ(CompareDates(&dayA, &dayB), 3);

    struct DateStamp bad{0, 1440, 0};
    time_t t = 0;
    EXPECT_FALSE(DateStampToTime(&bad, &t));
    bad = {0, 0, 3000};
    EXPECT_FALSE(DateStampToTime(&bad, &t));
    EXPECT_EQ(IoErr(), ERROR_BAD_NUMBER);
}

TEST(DateStamps, FileModificationDate) {
    Zone("UTC0");
    TempDir dir;
    dir.Touch("f");
    std::string file = dir.path + "/f";
    utimbuf times{1718114645, 1718114645};
    ASSERT_EQ(utime(file.c_str(), &times), 0);
    struct DateStamp stamp;
    ASSERT_TRUE(FileDateStamp(file.c_str(), &stamp));
    EXPECT_EQ(stamp.ds_Days, 16963);
    EXPECT_EQ(stamp.ds_Minute, 14 * 60 + 4);
    EXPECT_EQ(stamp.ds_Tick, 250);
    EXPECT_FALSE(FileDateStamp((dir.path + "/none").c_str(), &stamp));
    EXPECT_EQ(IoErr(), ERROR_OBJECT_NOT_FOUND);
}

} // namespace
