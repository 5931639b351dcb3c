// A modeless requester window on the headless display: it takes input only
// while active, beside a modal requester of a text window, and its fields
// report the key that left them; letters of labelled fields and check
// boxes work as a button's letter does.
#include "headless_fixture.h"
#include "platform/display/requester_window.h"
#include "requester_gadget.h"

#include <string>
#include <vector>

namespace {

class ModelessRequesterTest : public HeadlessTest {
protected:
    void SetUp() override
    {
        HeadlessTest::SetUp();
        window_ = OpenTextWindow();
        RequesterGadget field = MakeGadget(GadgetKind::String, 7, "Sear_ch");
        field.MaxChars = 50;
        search_.Layout.Children = {field, MakeGadget(GadgetKind::Button, 2, "_Next"), MakeGadget(GadgetKind::Check, 5, "UPPER_=lower")};
        search_.Modeless = true;
        ASSERT_TRUE(OpenRequesterWindow(&search_));
    }

    void TearDown() override
    {
        CloseRequesterWindow(&search_);
        HeadlessTest::TearDown();
    }

    // What reached the window's port: "up ID/END" for a gadget-up, "key
    // CODE" for a raw key down.
    std::vector<std::string> Events()
    {
        std::vector<std::string> events;
        while (Message* message = GetMsg(search_.UserPort)) {
            const auto* event = reinterpret_cast<IntuiMessage*>(message);
            if (event->Class == IDCMP_GADGETUP)
                events.push_back("up " + std::to_string(event->Code) + '/' + std::to_string(event->GadgetEnd));
            else if (event->Class == IDCMP_RAWKEY && !(event->Code & IECODE_UP_PREFIX))
                events.push_back("key " + std::to_string(event->Code));
            ReplyMsg(message);
        }
        return events;
    }

    void Press(const char* name)
    {
        std::string error;
        ASSERT_TRUE(display.PressKey(name, &error)) << name << ": " << error;
    }

    Window* window_ = nullptr;
    RequesterWindow search_;
};

TEST_F(ModelessRequesterTest, FrontOnlyWhileActiveAndNeverOverAModalOne)
{
    EXPECT_EQ(display.FrontRequester(), &search_) << "it opens active";
    display.Activate(window_);
    EXPECT_EQ(display.FrontRequester(), nullptr) << "the text window takes the keys again";
    EXPECT_EQ(display.ModelessRequester(), &search_);

    RequesterWindow modal;
    modal.RefWindow = window_;
    ASSERT_TRUE(OpenRequesterWindow(&modal));
    EXPECT_EQ(display.FrontRequester(), &modal);
    ASSERT_TRUE(display.ActivateRequester(&search_));
    EXPECT_EQ(display.FrontRequester(), &search_);
    CloseRequesterWindow(&search_);
    EXPECT_EQ(display.FrontRequester(), &modal) << "closing it hands the keys back";
    EXPECT_FALSE(display.ActivateRequester(&search_));
    CloseRequesterWindow(&modal);
}

TEST_F(ModelessRequesterTest, FieldsReportTheKeyThatLeftThem)
{
    struct Row {
        const char* name;
        std::vector<const char*> keys;
        std::vector<std::string> events;
        std::string text;
    };
    const Row rows[] = {
        {"return ends with 13", {"c", "a", "Return"}, {"up 7/13"}, "a"},
        {"enter ends with 13", {"c", "b", "Enter"}, {"up 7/13"}, "b"},
        {"tab ends with 9", {"c", "d", "Tab"}, {"up 7/9"}, "d"},
        {"esc ends with 27 and leaves the window open", {"c", "e", "Esc"}, {"up 7/27"}, "e"},
        {"esc outside a field is a key", {"Esc"}, {"key 69"}, ""},
        {"the check box letter flips it", {"="}, {"up 5/0"}, ""},
        {"a button letter", {"n"}, {"up 2/0"}, ""},
    };
    for (const Row& row : rows) {
        SetRequesterText(&search_, 7, "");
        ActivateRequesterGadget(&search_, 0);
        for (const char* key : row.keys)
            Press(key);
        EXPECT_EQ(Events(), row.events) << row.name;
        EXPECT_EQ(RequesterText(&search_, 7), row.text) << row.name;
    }
    EXPECT_EQ(RequesterNumber(&search_, 5), 1);
    EXPECT_EQ(search_.ActiveGadget, 0) << "a field left by a key gives the keyboard back";
}

} // namespace
