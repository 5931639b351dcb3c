// The event rules of the requester loop, seen through the requesters that
// show a message.
#include "requester_test_support.h"

#include "requesters/input_requesters.h"
#include "requesters/message_requesters.h"
#include "requesters/requester_frame.h"
#include "text/record/create_text_record.h"
#include "text/record/settings.h"
#include "text/record/text_record.h"

#include <cstring>
#include <memory>

namespace {

const char* const ThreeChoices[] = {"C_ontinue", "_Save", "Cancel"};

struct Answer {
    const char* name;
    bool choice;   // a ChoiceRequester of three buttons, else a ConfirmRequester
    std::function<void(RequesterTest&)> act;
    int expected;
};

void Right(RequesterTest& test) { ASSERT_TRUE(test.display_.Click(3, 3, 0, IECODE_RBUTTON)); }
void Middle(RequesterTest& test) { ASSERT_TRUE(test.display_.Click(3, 3, 0, IECODE_MBUTTON)); }
void CloseGadget(RequesterTest& test) { ASSERT_TRUE(test.display_.CloseFrontRequester()); }

class AnswerTest : public RequesterTest {};

TEST_F(AnswerTest, EachWayOfAnsweringGivesItsOutcome)
{
    const Answer answers[] = {
        {"Return in a confirmation is yes", false, [](RequesterTest& t) { t.Key("Return"); }, 1},
        {"Enter in a confirmation is yes", false, [](RequesterTest& t) { t.Key("Enter"); }, 1},
        {"Esc is a close", false, [](RequesterTest& t) { t.Key("Esc"); }, -1},
        {"the underscored y", false, [](RequesterTest& t) { t.Key("y"); }, 1},
        {"the underscored n", false, [](RequesterTest& t) { t.Key("N"); }, 0},
        {"a right click cancels", false, Right, -1},
        {"a middle click cancels", false, Middle, -1},
        {"the close gadget", false, CloseGadget, -1},
        {"other keys are ignored", false, [](RequesterTest& t) { t.Key("x"); t.Key("F3"); t.Key("n"); }, 0},
        {"Return in a choice is the first button", true, [](RequesterTest& t) { t.Key("Return"); }, 1},
        {"a choice's underscored letter", true, [](RequesterTest& t) { t.Key("s"); }, 2},
        {"a letter without underscore does nothing", true, [](RequesterTest& t) { t.Key("c"); t.Key("a"); t.Key("o"); }, 1},
        {"a choice's button by label", true, [](RequesterTest& t) { t.Press("cancel"); }, 3},
    };
    for (const Answer& answer : answers) {
        SCOPED_TRACE(answer.name);
        Start([&] {
            return answer.choice ? ChoiceRequester(nullptr, 3, "Question", ThreeChoices)
                                 : ConfirmRequester(nullptr, "Sure?");
        });
        ASSERT_NE(Front(), nullptr);
        answer.act(*this);
        EXPECT_EQ(Result(), answer.expected);
        EXPECT_EQ(display_.FrontRequester(), nullptr) << "the requester has gone";
    }
}

TEST_F(RequesterTest, MessageShowsItsLinesAndAnyKeyClosesIt)
{
    for (const char* key : {"a", "Esc", "Return", "Space"}) {
        SCOPED_TRACE(key);
        Start([] { return MessageRequester(nullptr, 3, "First", "Two\nlines", " "); });
        EXPECT_EQ(Shown(), (std::vector<std::string>{"requester: Tavrel", "|First", "|Two", "|lines", "|", "[OK !]"}));
        Key(key);
        EXPECT_EQ(Result(), 0);
    }
}

TEST_F(RequesterTest, ChoiceWithoutCountShowsOneButton)
{
    Start([] { return ChoiceRequester(nullptr, 0, "Only", ThreeChoices); });
    EXPECT_EQ(Shown(), (std::vector<std::string>{"requester: Tavrel", "|Only", "[Continue]"}));
    Key("o");
    EXPECT_EQ(Result(), 1);
}

TEST_F(RequesterTest, WindowCenterWithoutTextHasNoReferenceWindow)
{
    uint16_t flags = Settings.Flags;
    Settings.Flags = static_cast<uint16_t>((flags & ~RequesterPositionMask) | WindowCenter);
    Start([] { return ConfirmRequester(nullptr, "Where?"); });
    RequesterWindow* front = Front();
    ASSERT_NE(front, nullptr);
    EXPECT_EQ(front->Place, RequesterPlace::WindowCenter);
    EXPECT_EQ(front->RefWindow, nullptr);
    Key("Esc");
    EXPECT_EQ(Result(), -1);
    Settings.Flags = flags;
}

TEST_F(RequesterTest, NoScreenGivesACancelWithoutWindow)
{
    Screen* screen = Globals.Screen;
    Globals.Screen = nullptr;
    Start([] { return ConfirmRequester(nullptr, "Nowhere"); });
    EXPECT_EQ(Result(), -1);
    EXPECT_EQ(display_.FrontRequester(), nullptr);
    Globals.Screen = screen;
}

std::vector<std::string> HelpShown;

TEST_F(RequesterTest, HelpClosesAnErrorReportButNotTheListOfFunctions)
{
    HelpShown.clear();
    SetHelpNodeShow([](TextRecord*, const char* node) { HelpShown.emplace_back(node); });
    std::unique_ptr<TextRecord, void (*)(TextRecord*)> record(CreateTextRecord(nullptr), FreeTextRecord);
    ASSERT_NE(record, nullptr);
    // A macro error names the function that failed: Help shows it and
    // closes the report.
    std::strcpy(record->MacroScratch, "Function ABS");
    Start([&] { return ConfirmRequester(record.get(), "Bad argument"); });
    ASSERT_NE(Front(), nullptr);
    Key("Help");
    EXPECT_EQ(Result(), 0);
    EXPECT_STREQ(record->MacroScratch, "");

    // Without a command's help, Help does nothing.
    Start([&] { return ConfirmRequester(record.get(), "Sure?"); });
    ASSERT_NE(Front(), nullptr);
    Key("Help");
    EXPECT_NE(display_.FrontRequester(), nullptr);
    Key("Return");
    EXPECT_EQ(Result(), 1);

    // In the list of functions Help shows the selected one and the list stays.
    static const char* const usages[] = {"ABS(n)", "WRITE(text)"};
    SetFunctionUsages(2, usages);
    Start([&] { return FunctionListRequester(record.get()); });
    ASSERT_NE(Front(), nullptr);
    Key("Down");
    Key("Help");
    EXPECT_NE(display_.FrontRequester(), nullptr);
    EXPECT_STREQ(record->MacroScratch, "");
    Key("Return");
    EXPECT_EQ(Result(), 2);
    EXPECT_EQ(HelpShown, (std::vector<std::string>{"ABS", "WRITE"}));
    SetFunctionUsages(0, nullptr);
    SetHelpNodeShow(nullptr);
}

} // namespace
