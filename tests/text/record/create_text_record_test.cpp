#include "../text_test_support.h"

#include "text/record/line_table.h"
#include "text/record/create_text_record.h"
#include "text/record/line_access.h"
#include "text/record/settings.h"

#include <cstring>

TEST(CreateTextRecord, NewTextIsOneEmptyLineWithTheSettings)
{
    RecordPtr record = NewRecord();
    ASSERT_TRUE(CheckInvariants(record.get()));
    EXPECT_EQ(record->RunCapacity, InitialRunCapacity);
    EXPECT_EQ(StoredLines(record.get()), Lines{""});
    EXPECT_EQ(GetLineText(record.get(), 0), record->EditLine);
    EXPECT_STREQ(record->LastDirectory, "/texts");
    EXPECT_STREQ(record->FileName, "NoName");
    EXPECT_EQ(record->Options, 0x2194u);
    EXPECT_STREQ(record->TabLabel, "Tabulations = 4");

    const SettingsRecord saved = Settings;
    Settings.MaxLineLength = 1000;
    RecordPtr later = NewRecord();
    Settings = saved;
    EXPECT_EQ(record->MaxLineLength, 255);
    EXPECT_EQ(later->MaxLineLength, 1000);
    EXPECT_TRUE(CheckInvariants(later.get()));

    RecordPtr here(CreateTextRecord(nullptr));
    EXPECT_GT(std::strlen(here->FileDirectory), 0u);
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
