// Window messages: posting, filtering by the event mask, replies, and the
// input the headless display gives.
#include "headless_fixture.h"

#include "platform/exec/tasks.h"

#include <future>
#include <string>

namespace {

uint32_t Classes(const std::vector<IntuiMessage>& messages)
{
    uint32_t classes = 0;
    for (const IntuiMessage& message : messages)
        classes |= message.Class;
    return classes;
}

TEST_F(HeadlessTest, AKeyPostedFromTheTestThreadReachesTheTaskAndIsReplied)
{
    std::promise<Window*> opened;
    std::promise<std::pair<IntuiMessage, std::string>> received;
    CreateNewProc("KeyReader", [&] {
        Window* window = OpenTextWindow();
        opened.set_value(window);
        // Read, replying each, until the key's release; keep its press.
        IntuiMessage key;
        for (IntuiMessage copy; !(copy.Class == IDCMP_RAWKEY && copy.Code & IECODE_UP_PREFIX);) {
            WaitPort(window->UserPort);
            Message* message = GetMsg(window->UserPort);
            copy = *reinterpret_cast<IntuiMessage*>(message);
            ReplyMsg(message);
            if (copy.Class == IDCMP_RAWKEY && !(copy.Code & IECODE_UP_PREFIX))
                key = copy;
        }
        char text[8];
        int count = KeyToText(&key, text, sizeof text);
        CloseWindow(window);
        received.set_value({key, std::string(text, static_cast<size_t>(count))});
    });
    Window* window = opened.get_future().get();
    ASSERT_NE(window, nullptr);
    std::string error;
    ASSERT_TRUE(display.PressKey("Ctrl+q", &error)) << error;
    auto [key, text] = received.get_future().get();
    WaitForAllTasks();
    EXPECT_EQ(key.Code, 0x10);
    EXPECT_EQ(key.Qualifier, IEQUALIFIER_CONTROL);
    EXPECT_EQ(key.IDCMPWindow, window);
    EXPECT_EQ(text, "\x11");
    // Every reply comes back here and is freed (the leak checker of the
    // sanitizer build watches this).
    CollectReplies();
    EXPECT_TRUE(display.Windows().empty());
}

TEST_F(HeadlessTest, TheEventMaskDropsOtherClassesAtTheDoor)
{
    Window* window = OpenTextWindow();
    ASSERT_NE(window, nullptr);
    ASSERT_TRUE(display.Tick());
    // The busy state's mask: close gadget, gadget down, new size.
    ASSERT_TRUE(ModifyIDCMP(window, 0x222));
    const uint32_t offered[] = {IDCMP_RAWKEY,      IDCMP_MOUSEBUTTONS, IDCMP_MOUSEMOVE,    IDCMP_MENUPICK,
                                IDCMP_INTUITICKS,  IDCMP_CLOSEWINDOW,  IDCMP_GADGETDOWN,   IDCMP_NEWSIZE,
                                IDCMP_GADGETUP,    IDCMP_MENUHELP,     IDCMP_ACTIVEWINDOW, IDCMP_INACTIVEWINDOW};
    for (uint32_t idcmpClass : offered)
        EXPECT_EQ(display.Post(idcmpClass, 0, 0), (idcmpClass & 0x222) != 0) << std::hex << idcmpClass;
    std::vector<IntuiMessage> messages = Drain(window);
    // What was queued before the change stays: the activation and the tick.
    EXPECT_EQ(Classes(messages), IDCMP_ACTIVEWINDOW | IDCMP_INTUITICKS | 0x222);
    EXPECT_EQ(messages.size(), 5u);
    EXPECT_FALSE(display.PressKey(StrokeForChar('a')));
    EXPECT_TRUE(Drain(window).empty());
}

TEST_F(HeadlessTest, ActivationMovesBetweenWindows)
{
    Window* first = OpenTextWindow();
    Window* second = OpenTextWindow();
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(display.ActiveWindow(), second);
    EXPECT_EQ(Classes(Drain(first)), IDCMP_ACTIVEWINDOW | IDCMP_INACTIVEWINDOW);
    EXPECT_EQ(Classes(Drain(second)), IDCMP_ACTIVEWINDOW);
    ActivateWindow(first);
    EXPECT_EQ(display.ActiveWindow(), first);
    EXPECT_EQ(Classes(Drain(first)), IDCMP_ACTIVEWINDOW);
    EXPECT_EQ(Classes(Drain(second)), IDCMP_INACTIVEWINDOW);
    EXPECT_EQ(display.Windows(), (std::vector<Window*>{first, second}));
    CloseWindow(first);
    EXPECT_EQ(display.ActiveWindow(), nullptr);
    EXPECT_FALSE(display.Tick());
}

TEST_F(HeadlessTest, ButtonsCarryTheirCellQualifiersAndTime)
{
    Window* window = OpenTextWindow();
    Drain(window);
    ASSERT_TRUE(display.Click(3, 2, IEQUALIFIER_LSHIFT));
    display.Sleep(300);
    ASSERT_TRUE(display.PressButton(-1, 4, 0));
    ASSERT_TRUE(display.MovePointer(5, 30));
    ASSERT_TRUE(display.ReleaseButton(5, 30));
    ASSERT_TRUE(display.MovePointer(6, 30));
    ASSERT_TRUE(display.Click(1, 1, 0, IECODE_RBUTTON));
    std::vector<IntuiMessage> m = Drain(window);
    ASSERT_EQ(m.size(), 8u);
    EXPECT_EQ(m[0].Code, SELECTDOWN);
    EXPECT_EQ(m[0].Qualifier, IEQUALIFIER_LSHIFT | IEQUALIFIER_LEFTBUTTON);
    EXPECT_EQ(m[0].MouseX, ColumnX(3));
    EXPECT_EQ(m[0].MouseY, RowTop(2));
    EXPECT_EQ(m[1].Code, SELECTUP);
    EXPECT_EQ(m[1].Qualifier, IEQUALIFIER_LSHIFT);
    EXPECT_EQ(m[2].MouseX, ColumnX(-1));
    EXPECT_EQ(m[3].Class, IDCMP_MOUSEMOVE);
    EXPECT_EQ(m[3].Qualifier, IEQUALIFIER_LEFTBUTTON);
    EXPECT_EQ(m[3].MouseY, RowTop(30));
    EXPECT_EQ(m[5].Qualifier, 0) << "no button held";
    EXPECT_EQ(m[6].Code, MENUDOWN);
    EXPECT_EQ(m[6].Qualifier, IEQUALIFIER_RBUTTON);
    // The clock moved only by Sleep: 300 ms apart, then within and beyond
    // the double-click time.
    EXPECT_EQ((m[2].Seconds - m[0].Seconds) * 1000000 + m[2].Micros - m[0].Micros, 300000u);
    EXPECT_TRUE(DoubleClick(m[0].Seconds, m[0].Micros, m[2].Seconds, m[2].Micros));
    display.Sleep(200);
    uint32_t seconds = 0;
    uint32_t micros = 0;
    CurrentTime(&seconds, &micros);
    EXPECT_TRUE(DoubleClick(m[0].Seconds, m[0].Micros, seconds, micros)) << "exactly the interval";
    display.Sleep(1);
    CurrentTime(&seconds, &micros);
    EXPECT_FALSE(DoubleClick(m[0].Seconds, m[0].Micros, seconds, micros));
    EXPECT_FALSE(DoubleClick(seconds, micros, m[0].Seconds, m[0].Micros));
}

TEST_F(HeadlessTest, ScrollerGadgetsAreHeldMovedAndReleased)
{
    PropInfo prop;
    prop.Flags = AUTOKNOB | FREEVERT | PROPBORDERLESS | PROPNEWLOOK;
    Gadget scroller;
    scroller.GadgetID = GADGETID_VERTSCROLLER;
    scroller.GadgetType = GTYP_PROPGADGET;
    scroller.Activation = 0x1B;
    scroller.SpecialInfo = &prop;
    Gadget up;
    up.GadgetID = GADGETID_ARROWUP;
    up.GadgetType = GTYP_BOOLGADGET;
    up.Activation = 0x13;
    scroller.NextGadget = &up;
    Window* window = OpenTextWindow();
    EXPECT_EQ(AddGList(window, &scroller, -1, -1, nullptr), 0);
    Drain(window);

    ASSERT_TRUE(display.PressGadget(GADGETID_VERTSCROLLER, true));
    EXPECT_TRUE(scroller.Flags & GFLG_SELECTED);
    EXPECT_TRUE(prop.Flags & KNOBHIT);
    // The text sets the scroller meanwhile; what the user holds stays.
    NewModifyProp(&scroller, window, nullptr, 0x1D, MAXPOT, 0x1000, MAXBODY, 0x2000, 1);
    EXPECT_TRUE(prop.Flags & KNOBHIT);
    EXPECT_EQ(prop.VertBody, 0x2000);
    ASSERT_TRUE(display.MoveKnob(GADGETID_VERTSCROLLER, 0x8000));
    EXPECT_EQ(prop.VertPot, 0x8000);
    EXPECT_EQ(prop.HorizPot, MAXPOT);
    ASSERT_TRUE(display.ReleaseGadget(GADGETID_VERTSCROLLER));
    EXPECT_FALSE(scroller.Flags & GFLG_SELECTED);
    EXPECT_FALSE(prop.Flags & KNOBHIT);
    ASSERT_TRUE(display.PressGadget(GADGETID_ARROWUP, false));
    ASSERT_TRUE(display.ReleaseGadget(GADGETID_ARROWUP));
    EXPECT_FALSE(display.PressGadget(0x77, false));
    EXPECT_FALSE(display.MoveKnob(GADGETID_ARROWUP, 1)) << "not proportional";

    std::vector<IntuiMessage> m = Drain(window);
    ASSERT_EQ(m.size(), 5u);
    const uint32_t expected[] = {IDCMP_GADGETDOWN, IDCMP_MOUSEMOVE, IDCMP_GADGETUP, IDCMP_GADGETDOWN, IDCMP_GADGETUP};
    for (size_t i = 0; i < m.size(); ++i)
        EXPECT_EQ(m[i].Class, expected[i]) << i;
    EXPECT_EQ(m[1].IAddress, &scroller);
    EXPECT_EQ(m[3].IAddress, &up);
    CloseWindow(window);
}

TEST_F(HeadlessTest, DropsArriveAtTheAppWindowPort)
{
    Window* window = OpenTextWindow();
    MsgPort* port = CreateMsgPort();
    AppWindow* appWindow = AddAppWindow(1, 42, window, port);
    ASSERT_NE(appWindow, nullptr);
    ASSERT_TRUE(display.Drop("/tmp/some dir/notes.txt", 2, 3));
    auto* drop = reinterpret_cast<AppMessage*>(GetMsg(port));
    ASSERT_NE(drop, nullptr);
    EXPECT_EQ(drop->am_ID, 1u);
    EXPECT_EQ(drop->am_UserData, 42u);
    ASSERT_EQ(drop->am_NumArgs, 1);
    EXPECT_STREQ(drop->am_ArgList[0].wa_Directory, "/tmp/some dir");
    EXPECT_STREQ(drop->am_ArgList[0].wa_Name, "notes.txt");
    EXPECT_EQ(drop->am_MouseX, ColumnX(2));
    EXPECT_EQ(drop->am_MouseY, RowTop(3));
    ReplyMsg(&drop->am_Message);
    EXPECT_EQ(GetMsg(port), nullptr);
    // A window without an AppWindow takes no drops; the record outlives its
    // window.
    CloseWindow(window);
    EXPECT_TRUE(RemoveAppWindow(appWindow));
    window = OpenTextWindow();
    EXPECT_FALSE(display.Drop("/tmp/notes.txt", 0, 0));
    CollectReplies();
    DeleteMsgPort(port);
}

TEST_F(HeadlessTest, CloseGadgetAndResizeWithinTheLimits)
{
    Window* window = OpenTextWindow();
    Drain(window);
    ASSERT_TRUE(display.PressCloseGadget());
    ASSERT_TRUE(display.Resize(100, 30));
    EXPECT_EQ(window->Width, 150);
    EXPECT_EQ(window->Height, 54);
    std::vector<IntuiMessage> m = Drain(window);
    ASSERT_EQ(m.size(), 2u) << "no IDCMP_CHANGEWINDOW: not in the mask";
    EXPECT_EQ(m[0].Class, IDCMP_CLOSEWINDOW);
    EXPECT_EQ(m[1].Class, IDCMP_NEWSIZE);
    // Kept on the screen; a move alone posts no IDCMP_NEWSIZE.
    ChangeWindowBox(window, 600, 190, 300, 100);
    EXPECT_EQ(window->LeftEdge, 340);
    EXPECT_EQ(window->TopEdge, 100);
    MoveWindow(window, -40, 0);
    EXPECT_EQ(window->LeftEdge, 300);
    EXPECT_EQ(Classes(Drain(window)), IDCMP_NEWSIZE);
    EXPECT_EQ(Drain(window).size(), 0u);
    // Messages left queued are freed with the window.
    display.Tick(3);
}

TEST_F(HeadlessTest, TitlesAndTitleWindows)
{
    // (char*)-1 leaves a title as it was; null empties it.
    Window* window = OpenTextWindow();
    SetWindowTitles(window, "NoName ($20 1-1/1)", reinterpret_cast<const char*>(-1));
    SetWindowTitles(window, reinterpret_cast<const char*>(-1), "Tavrel Version 5.00");
    EXPECT_EQ(display.Title(window), "NoName ($20 1-1/1)");
    EXPECT_EQ(display.ScreenTitle(window), "Tavrel Version 5.00");
    SetWindowTitles(window, nullptr, reinterpret_cast<const char*>(-1));
    EXPECT_EQ(display.Title(window), "");
    EXPECT_FALSE(display.IsTitleWindow(window));

    NewWindow titleTemplate{.LeftEdge = 588, .TopEdge = 1, .Width = 150, .Height = 11,
                            .Flags = 0x00030002, .Title = "notes.txt"};
    Window* titleWindow = OpenWindow(&titleTemplate);
    ASSERT_NE(titleWindow, nullptr);
    EXPECT_TRUE(display.IsTitleWindow(titleWindow));
    EXPECT_EQ(display.Title(titleWindow), "notes.txt");
    EXPECT_EQ(titleWindow->LeftEdge, 640 - 150);
    EXPECT_EQ(display.Rows(titleWindow), 0);
    EXPECT_EQ(display.ActiveWindow(), window) << "not activated";
    ASSERT_TRUE(ModifyIDCMP(titleWindow, 0x00040408));
    ASSERT_TRUE(display.Activate(titleWindow));
    EXPECT_EQ(Classes(Drain(titleWindow)), IDCMP_ACTIVEWINDOW);
}

TEST_F(HeadlessTest, ThePublicScreenAndItsImages)
{
    Screen* screen = LockPubScreen(nullptr);
    ASSERT_NE(screen, nullptr);
    EXPECT_EQ(LockPubScreen("workbench"), screen);
    EXPECT_EQ(LockPubScreen("Other"), nullptr);
    EXPECT_EQ(display.ScreenLocks(), 2);
    // The size gadget's image is what the window borders make room for.
    DrawInfo* drawInfo = GetScreenDrawInfo(screen);
    Image* size = NewSysImage(drawInfo, SIZEIMAGE, 0);
    EXPECT_EQ(size->Width, HeadlessDisplay::kBorderRight);
    EXPECT_EQ(size->Height, HeadlessDisplay::kBorderBottom);
    DisposeObject(size);
    FreeScreenDrawInfo(screen, drawInfo);
    UnlockPubScreen(nullptr, screen);
    UnlockPubScreen(nullptr, screen);
    EXPECT_EQ(display.ScreenLocks(), 0);
}

TEST(RunDisplay, TheLoopDrivesTheProgramUntilItsTaskReturns)
{
    HeadlessDisplay display;
    display.SetDisplayLoop([&display] {
        // Until the program's window is open and active.
        while (!display.PressCloseGadget())
            Delay(1);
    });
    bool closed = false;
    int status = RunDisplay(display, [&closed] {
        NewWindow description;
        description.Width = 300;
        description.Height = 100;
        description.IDCMPFlags = IDCMP_CLOSEWINDOW;
        description.Flags = WFLG_ACTIVATE | WFLG_CLOSEGADGET;
        Window* window = OpenWindow(&description);
        while (!closed) {
            WaitPort(window->UserPort);
            while (Message* message = GetMsg(window->UserPort)) {
                closed = closed || reinterpret_cast<IntuiMessage*>(message)->Class == IDCMP_CLOSEWINDOW;
                ReplyMsg(message);
            }
        }
        CloseWindow(window);
    });
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(closed);
    EXPECT_TRUE(display.ProgramEnded());
    EXPECT_EQ(CurrentDisplayBackend(), nullptr);
    WaitForAllTasks();
}

TEST(DisplayWithoutBackend, OperationsFailQuietly)
{
    NewWindow description;
    EXPECT_EQ(OpenWindow(&description), nullptr);
    EXPECT_EQ(LockPubScreen(nullptr), nullptr);
    TextAttr attr{"topaz.font", 8, 0, 0};
    EXPECT_EQ(OpenFont(&attr), nullptr);
    EXPECT_FALSE(DoubleClick(0, 0, 0, 0));
    CloseWindow(nullptr);
    DisplayBeep(nullptr);
}

} // namespace
