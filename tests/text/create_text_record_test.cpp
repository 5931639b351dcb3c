#include "text_test_support.h"

#include "text/create_text_record.h"
#include "text/line_access.h"
#include "text/settings.h"

#include <cstring>
#include <string>

TEST(CreateTextRecord, NewTextIsOneEmptyLineWithTheSettings)
{
    RecordPtr record = NewRecord();
    ASSERT_TRUE(CheckInvariants(record.get()));
    EXPECT_EQ(record->LineCount, 1);
    EXPECT_EQ(record->LineCapacity, 32);
    EXPECT_EQ(record->LineTable[0], nullptr);
    EXPECT_EQ(GetLineText(record.get(), 0), record->EditLine);
    EXPECT_STREQ(record->EditLine, "");
    EXPECT_NE(record->CommandPort, nullptr);
    EXPECT_NE(record->LinePool, nullptr);
    EXPECT_STREQ(record->FileDirectory, "/texts");
    EXPECT_STREQ(record->LastDirectory, "/texts");
    EXPECT_STREQ(record->FileName, "NoName");
    EXPECT_EQ(record->Options, 0x2194u);
    EXPECT_EQ(record->MaxLineLength, 255);
    EXPECT_EQ(record->TabSize, 4);
    EXPECT_STREQ(record->TabLabel, "Tabulations = 4");
    EXPECT_EQ(record->WindowTop, 1);
    EXPECT_EQ(record->WindowWidth, 640);
    EXPECT_EQ(record->WindowHeight, 199);
    EXPECT_STREQ(record->FontName, "topaz.font");
    EXPECT_EQ(record->FontSize, 8);
    EXPECT_EQ(record->Modified, 0);
}

TEST(CreateTextRecord, LaterSettingsReachOnlyLaterTexts)
{
    RecordPtr before = NewRecord();
    const SettingsRecord saved = Settings;
    Settings.MaxLineLength = 1000;
    Settings.Tabs = 8;
    Settings.Flags = 0x0048;
    RecordPtr after = NewRecord();
    Settings = saved;

    EXPECT_EQ(before->MaxLineLength, 255);
    EXPECT_EQ(after->MaxLineLength, 1000);
    EXPECT_TRUE(CheckInvariants(after.get()));
    EXPECT_EQ(after->TabSize, 8);
    EXPECT_STREQ(after->TabLabel, "Tabulations = 8");
    EXPECT_EQ(after->Options, 0x0048u);
}

TEST(CreateTextRecord, DirectoryDefaultsToCurrentAndIsCut)
{
    RecordPtr current(CreateTextRecord(nullptr));
    ASSERT_NE(current, nullptr);
    EXPECT_GT(std::strlen(current->FileDirectory), 0u);
    EXPECT_STREQ(current->LastDirectory, current->FileDirectory);

    const std::string deep = "/" + std::string(400, 'd');
    RecordPtr cut(CreateTextRecord(deep.c_str()));
    ASSERT_NE(cut, nullptr);
    EXPECT_EQ(std::string(cut->FileDirectory), deep.substr(0, 256));
}

// Every allocation of the creation fails in turn; each failure must leave
// nothing behind, which the leak checker of the sanitizer build proves.
TEST(CreateTextRecord, EachFailedStepFreesWhatWasGot)
{
    int failures = 0;
    for (long allowed = 0; allowed < 64; ++allowed) {
        TextRecord* record = nullptr;
        {
            FailAllocationsAfter guard(allowed);
            record = CreateTextRecord("/texts");
        }
        if (record != nullptr) {
            EXPECT_TRUE(CheckInvariants(record));
            FreeTextRecord(record);
            break;
        }
        ++failures;
    }
    EXPECT_GE(failures, 3);   // record, table and buffers at least
}

TEST(CreateTextRecord, UnaddressableLineLengthFails)
{
    const SettingsRecord saved = Settings;
    Settings.MaxLineLength = 0xFFFFFFFFu;
    TextRecord* record = CreateTextRecord("/texts");
    Settings = saved;
    EXPECT_EQ(record, nullptr);
    FreeTextRecord(record);
}
