// The commands that are one requester: what they accept, what they refuse
// and what the refusal says.
#include "requester_test_support.h"

#include "requesters/command_requesters.h"
#include "text/record/create_text_record.h"
#include "text/record/text_record.h"

#include <memory>

namespace {

class CommandTest : public RequesterTest {
public:
    void SetUp() override
    {
        RequesterTest::SetUp();
        record_.reset(CreateTextRecord(nullptr));
        ASSERT_NE(record_, nullptr);
    }
    void TearDown() override
    {
        record_.reset();
        RequesterTest::TearDown();
    }

    // Runs `command` and enters `value` in its number requester; gives the
    // lines of the requester that follows, if any.
    std::vector<std::string> Enter(void (*command)(TextRecord*), const char* value)
    {
        Start([this, command] {
            command(record_.get());
            return 0;
        });
        EXPECT_NE(Front(), nullptr);
        Input(value);
        Press("Yes");
        std::vector<std::string> next = display_.FrontRequester() ? Shown() : std::vector<std::string>{};
        if (!next.empty())
            Key("Return");
        Result();
        return next;
    }

    std::unique_ptr<TextRecord, void (*)(TextRecord*)> record_{nullptr, FreeTextRecord};
};

TEST_F(CommandTest, TabulationsTakeOneToFortyOnly)
{
    const struct {
        const char* value;
        int16_t tabSize;
        bool refused;
    } rows[] = {{"0", 8, true}, {"41", 8, true}, {"40", 40, false}, {"1", 1, false}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.value);
        record_->TabSize = 8;
        std::vector<std::string> next = Enter(TabulationsCommand, row.value);
        EXPECT_EQ(record_->TabSize, row.tabSize);
        if (row.refused)
            EXPECT_EQ(next, (std::vector<std::string>{"requester: NoName", "|Incorrect value", "|Must be from 1 to 40",
                                                      "[OK !]"}));
        else
            EXPECT_TRUE(next.empty());
    }
}

TEST_F(CommandTest, MaxLineLengthOnlyGrows)
{
    int32_t start = record_->MaxLineLength;
    std::vector<std::string> next = Enter(MaxLineLengthCommand, std::to_string(start - 1).c_str());
    EXPECT_EQ(next, (std::vector<std::string>{"requester: NoName", "|Can't reduce max line length", "[OK !]"}));
    EXPECT_EQ(record_->MaxLineLength, start);
    EXPECT_TRUE(Enter(MaxLineLengthCommand, std::to_string(start).c_str()).empty());
    EXPECT_TRUE(Enter(MaxLineLengthCommand, "1000").empty());
    EXPECT_EQ(record_->MaxLineLength, 1000);
}

TEST_F(CommandTest, InformationsTellTheTextAndItsPort)
{
    Start([this] {
        InformationRequester(record_.get());
        return 0;
    });
    std::vector<std::string> shown = Shown();
    ASSERT_EQ(shown.size(), 11u);
    EXPECT_EQ(shown[1], "|Tavrel Version 5.00");
    EXPECT_EQ(shown[3], "|");
    EXPECT_EQ(shown[4], "|0 chars");
    EXPECT_EQ(shown[6], "|ARexx port not available");
    EXPECT_EQ(shown[10], "[OK !]");
    Key("Space");
    Result();
}

} // namespace
