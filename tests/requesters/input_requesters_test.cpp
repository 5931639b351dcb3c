// The requesters that bring back a value, answered as a user does.
#include "requester_test_support.h"

#include "requesters/file_requesters.h"
#include "requesters/input_requesters.h"
#include "text/record/create_text_record.h"
#include "text/record/text_record.h"

#include <cstring>
#include <memory>

namespace {

class ValueTest : public RequesterTest {
public:
    void SetUp() override
    {
        RequesterTest::SetUp();
        record_.reset(CreateTextRecord(nullptr));
        ASSERT_NE(record_, nullptr);
        record_->LineCount = 50;
        record_->CursorLine = 9;
    }
    void TearDown() override
    {
        record_.reset();
        RequesterTest::TearDown();
    }

    std::unique_ptr<TextRecord, void (*)(TextRecord*)> record_{nullptr, FreeTextRecord};
};

TEST_F(ValueTest, StringFieldKeepsItsLimitAndNeedsASecondReturn)
{
    char buffer[8] = "ab";
    int limit = 5;   // 4 characters
    Start([&] { return InputRequester(nullptr, "Name", buffer, &limit); });
    EXPECT_EQ(Shown(), (std::vector<std::string>{"requester: Tavrel", "|Name", "string: ab", "[YES]", "[NO]"}));
    Type("cdef");
    // Return leaves the field and keeps the requester up; the next accepts.
    Key("Return");
    EXPECT_EQ(Shown()[2], "string: abcd");
    Key("Return");
    EXPECT_EQ(Result(), 1);
    EXPECT_STREQ(buffer, "abcd");
}

TEST_F(ValueTest, TabStoresTheTextEvenIfTheRequesterIsCancelled)
{
    char buffer[32] = "";
    int limit = 32;
    Start([&] { return InputRequester(nullptr, "Name", buffer, &limit); });
    ASSERT_NE(Front(), nullptr);
    Type("kept");
    Key("Tab");
    EXPECT_EQ(Shown()[2], "string: kept") << "the requester stays open";
    Key("Esc");
    EXPECT_EQ(Result(), 0);
    EXPECT_STREQ(buffer, "kept");
}

TEST_F(ValueTest, NegativeNumberShowsItsAmountAndTheFunctionButton)
{
    int value = -42;
    Start([&] { return InputRequester(nullptr, "Count", nullptr, &value); });
    EXPECT_EQ(Shown(), (std::vector<std::string>{"requester: Tavrel", "|Count", "[...]", "integer: 42", "[YES]", "[NO]"}));
    Press("...");   // does nothing for a number
    Input("17");
    Press("yes");
    EXPECT_EQ(Result(), 1);
    EXPECT_EQ(value, 17);
}

TEST_F(ValueTest, GotoLineAnswers)
{
    struct Row {
        const char* name;
        std::function<void(ValueTest&)> act;
        int32_t expected;
    };
    const Row rows[] = {
        {"cancel keeps the line", [](ValueTest& t) { t.Press("Cancel"); }, 10},
        {"close keeps the line", [](ValueTest& t) { t.Key("Esc"); }, 10},
        {"a line number", [](ValueTest& t) { t.Input("33"); t.Press("Yes"); }, 33},
        {"relative 0 stays", [](ValueTest& t) { t.Input("0"); t.Check("relative"); t.Press("Yes"); }, 10},
        {"relative 5 goes down five", [](ValueTest& t) { t.Input("5"); t.Check("Relative"); t.Press("Yes"); }, 15},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        Start([&] { return GotoLineRequester(record_.get()); });
        EXPECT_EQ(Shown()[2], "integer: 10");
        row.act(*this);
        EXPECT_EQ(Result(), row.expected);
    }
}

TEST_F(ValueTest, GotoLineOtherEmptiesTheFieldAndKeepsRelative)
{
    Start([&] { return GotoLineRequester(record_.get()); });
    ASSERT_NE(Front(), nullptr);
    Check("Relative");
    Press("Other");
    EXPECT_EQ(Shown()[2], "integer: 0");
    EXPECT_EQ(Shown()[3], "check Relative: on");
    Type("2");
    Key("Return");   // leaves the field
    Key("Return");   // accepts
    EXPECT_EQ(Result(), 12);
}

TEST_F(ValueTest, ListSelectsAndAccepts)
{
    const char* const rows[] = {"one", "two", "three"};
    struct Row {
        const char* name;
        std::function<void(ValueTest&)> act;
        int expected;
    };
    const Row cases[] = {
        {"Return takes the first row", [](ValueTest& t) { t.Key("Return"); }, 1},
        {"a click on another row only moves", [](ValueTest& t) { t.Pick(3); t.Key("Return"); }, 3},
        {"a second click accepts", [](ValueTest& t) { t.Pick(2); t.Pick(2); }, 2},
        {"a click on the selected first row accepts", [](ValueTest& t) { t.Pick(1); }, 1},
        {"up on the first row stays", [](ValueTest& t) { t.Key("Up"); t.Key("Return"); }, 1},
        {"down past the last row stays", [](ValueTest& t) { for (int i = 0; i < 4; ++i) t.Key("Down"); t.Key("Return"); }, 3},
        {"No cancels", [](ValueTest& t) { t.Key("n"); }, 0},
        {"other keys do nothing", [](ValueTest& t) { t.Key("x"); t.Key("Down"); t.Press("Yes"); }, 2},
    };
    for (const Row& row : cases) {
        SCOPED_TRACE(row.name);
        Start([&] { return ListRequester(record_.get(), "Pick", 3, rows); });
        EXPECT_EQ(Shown(), (std::vector<std::string>{"requester: Pick", "list:", "> one", "  two", "  three", "[YES]", "[NO]"}));
        row.act(*this);
        EXPECT_EQ(Result(), row.expected);
    }
}

TEST_F(ValueTest, FileRequesterOpensCenteredThenWhereItWasLeft)
{
    FileReqHeight = 0;
    char drawer[FileDirectorySize] = "/tmp";
    char file[FileNameSize] = "old.txt";
    Start([&] { return FileRequester(record_.get(), "Saving text", drawer, file); });
    RequesterWindow* front = Front();
    ASSERT_NE(front, nullptr);
    // 640 x 200: a third wide but at least 320, two thirds high, centered.
    EXPECT_EQ(front->Width, 320);
    EXPECT_EQ(front->Height, 132);
    EXPECT_EQ(front->Left, 160);
    EXPECT_EQ(front->Top, 34);
    EXPECT_EQ(Shown(), (std::vector<std::string>{"requester: Saving text", "drawer: /tmp", "file: old.txt", "save",
                                                 "[Accept]", "[Cancel]"}));
    Input("/var/new.txt");
    Press("Accept");
    EXPECT_EQ(Result(), 1);
    EXPECT_STREQ(drawer, "/var");
    EXPECT_STREQ(file, "new.txt");
}

TEST_F(ValueTest, OnlyAnUpperCaseSOpensInSaveModeAndCancelKeepsTheNames)
{
    char drawer[FileDirectorySize] = "/tmp";
    char file[FileNameSize] = "a";
    Start([&] { return FileRequester(record_.get(), "saving", drawer, file); });
    EXPECT_EQ(Shown(), (std::vector<std::string>{"requester: saving", "drawer: /tmp", "file: a", "[Accept]", "[Cancel]"}));
    Input("b");
    Press("Cancel");
    EXPECT_EQ(Result(), 0);
    EXPECT_STREQ(file, "a");
}

TEST_F(ValueTest, FunctionListAppendsTheChosenUsage)
{
    static const char* const usages[] = {"ABS(n)", "WRITE(text)"};
    SetFunctionUsages(2, usages);
    char buffer[255] = "x=";
    int limit = -255;
    Start([&] { return InputRequester(record_.get(), "Macro command", buffer, &limit); });
    ASSERT_NE(Front(), nullptr);
    Press("...");
    EXPECT_EQ(Shown()[0], "requester: Available functions") << "the inner requester is in front";
    Pick(2);
    Pick(2);
    EXPECT_EQ(Shown()[3], "string: x=WRITE(text)");
    Press("Yes");
    EXPECT_EQ(Result(), 1);
    EXPECT_STREQ(buffer, "x=WRITE(text)");
    EXPECT_EQ(record_->HelpCommandId, 0) << "the help id comes back";
    SetFunctionUsages(0, nullptr);
}

} // namespace
