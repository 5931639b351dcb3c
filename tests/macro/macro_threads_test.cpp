// Texts running macros at the same time on their own threads: a loop
// stopped in one while another keeps working, and user functions shared by
// both, defined by a text that has closed.
#include "macro_test_support.h"

#include "frame/window/text_window.h"
#include "macro/user_functions.h"
#include "platform/display/headless/headless_display.h"
#include "platform/display/intuition.h"
#include "platform/exec/tasks.h"

#include <atomic>
#include <chrono>
#include <string>
#include <thread>

namespace {

// Runs `command` in a text of its own with its window open, on a task
// named `name`; `window` is set while the window is open.
void StartText(const char* name, Screen* screen, const char* command, std::atomic<Window*>* window,
               std::string* result, std::atomic<bool>* done)
{
    CreateNewProc(name, [=] {
        TextRecord* record = NewMacroRecord();
        NewWindow description;
        description.Width = 200;
        description.Height = 100;
        description.IDCMPFlags = TextWindowIDCMP;
        description.Flags = WFLG_CLOSEGADGET;
        description.Screen = screen;
        record->Window = OpenWindow(&description);
        record->TextState = WindowOpen;
        window->store(record->Window);
        *result = RunCommand(record, command);
        window->store(nullptr);
        CloseWindow(record->Window);
        record->Window = nullptr;
        FreeMacroRecord(record);
        done->store(true);
    });
}

template <typename Condition>
bool WaitFor(Condition condition)
{
    for (int tries = 0; tries < 6000 && !condition(); ++tries)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    return condition();
}

} // namespace

TEST(MacroThreads, ALoopStoppedInOneTextWhileAnotherKeepsWorking)
{
    HeadlessDisplay display;
    SetDisplayBackend(&display);
    Screen* screen = LockPubScreen(nullptr);
    {
        TextRecord* defining = NewMacroRecord();
        EXPECT_EQ(RunCommand(defining, "SECURITY(2000000000)"), "500");
        EXPECT_EQ(RunCommand(defining, "DEF TRI(N)=S=0:FOR(I=1,I<=N,S=S+I,I=I+1):S"), "\"TRI\"");
        EXPECT_EQ(RunCommand(defining, "DEF TWICE(N)=TRI(N)+TRI(N)"), "\"TWICE\"");
        FreeMacroRecord(defining);
    }

    std::atomic<Window*> endlessWindow{nullptr}, workerWindow{nullptr};
    std::atomic<bool> endlessDone{false}, workerDone{false};
    std::string endless, worker;
    StartText("endless", screen, "A=0:WHILE(1,A=A+TWICE(3))", &endlessWindow, &endless, &endlessDone);
    ASSERT_TRUE(WaitFor([&] {
        Window* window = endlessWindow.load();
        return window && window->IDCMPFlags == (IDCMP_CLOSEWINDOW | IDCMP_RAWKEY);
    }));
    StartText("worker", screen, "T=0:FOR(K=0,K<800,T=T+TWICE(K?1)-TRI(100),K=K+1):T", &workerWindow, &worker,
              &workerDone);
    EXPECT_TRUE(WaitFor([&] { return workerDone.load(); }));
    EXPECT_FALSE(endlessDone.load());

    display.Activate(endlessWindow.load());
    std::string error;
    // The break is pressed until the loop has ended, so a slow start of the
    // loop on a loaded machine can never leave the test waiting forever.
    EXPECT_TRUE(WaitFor([&] {
        display.PressKey("Ctrl+Alt+Esc", &error);
        return endlessDone.load();
    })) << error;
    WaitForAllTasks();
    EXPECT_EQ(endless, "#229");
    // Sum over K of 2 * TRI(K xor 1) - TRI(100).
    long long expected = 0;
    for (int k = 0; k < 800; ++k) {
        const long long n = k ^ 1;
        expected += n * (n + 1) - 5050;
    }
    EXPECT_EQ(worker, std::to_string(static_cast<int32_t>(static_cast<uint32_t>(expected))));

    UnlockPubScreen(nullptr, screen);
    SetDisplayBackend(nullptr);
    FreeUserFunctions();
}

// One text redefines a function over and over while another calls it: every
// call runs one whole body, the old or the new.
TEST(MacroThreads, RedefiningAFunctionWhileAnotherTextCallsIt)
{
    {
        TextRecord* defining = NewMacroRecord();
        RunCommand(defining, "SECURITY(1000000)");
        RunCommand(defining, "DEF F(X)=X*1");
        // Compiled while F can be found; a redefinition hides F for a moment.
        RunCommand(defining, "DEF CALLS(N)=B=0:FOR(I=0,I<N,I=I+1,R=F(2),B=B+IF((R==2)|(R==4),0,1)):B");
        FreeMacroRecord(defining);
    }
    std::atomic<bool> stop{false};
    std::string calls;
    CreateNewProc("caller", [&] {
        TextRecord* record = NewMacroRecord();
        calls = RunCommand(record, "CALLS(20000)");
        FreeMacroRecord(record);
        stop = true;
    });
    TextRecord* redefining = NewMacroRecord();
    // A pause between definitions lets the caller take the table's lock
    // for its loop limit; a text gives a definition per command anyway.
    for (int round = 0; !stop.load(); ++round) {
        RunCommand(redefining, round % 2 ? "DEF F(X)=X*1" : "DEF F(X)=X*2");
        std::this_thread::sleep_for(std::chrono::microseconds(50));
    }
    WaitForAllTasks();
    FreeMacroRecord(redefining);
    EXPECT_EQ(calls, "0");
    FreeUserFunctions();
}
