#include "echo_hosts.h"

#include "platform/rexx/host_socket_client.h"
#include "platform/rexx/rexx_message.h"
#include "platform/rexx/script_server.h"

#include <chrono>
#include <fstream>
#include <thread>
#include <unistd.h>

namespace {

// The thread sanitizer hands a signal to a thread only when it calls into
// instrumented code, which the interpreter's bare loop never does; under
// it the endless script sends host commands between its clauses.
#ifdef TAVREL_SIGNALS_WAIT_FOR_CALLS
constexpr char Forever[] = "do forever; 'abc'; end\n";
#else
constexpr char Forever[] = "do forever; end\n";
#endif

class Scripts : public EchoHosts {
protected:
    void SetUp() override
    {
        StartHosts(1);
        ASSERT_TRUE(StartScriptServer(nullptr, "Tavrel"));
        Write("commands.tavrel",
            "'abc'; a = rc result\n"
            "'fail'; b = rc symbol('RESULT')\n"
            "'set V.1 hello'; c = rc v.1\n"
            "address 'ECHO.0' 'up'; d = rc result\n"
            "return a '|' b '|' c '|' d\n");
        Write("args.tavrel", "return arg() '|' arg(1) '|' arg(2)\n");
        Write("bad.tavrel", "x = 1 + 'a'\n");
        Write("three.tavrel", "exit 3\n");
    }

    void TearDown() override
    {
        StopScriptServer();
        EchoHosts::TearDown();
    }

    void Write(const char* name, const char* text)
    {
        std::ofstream(runtime.path + "/" + name) << "/* */\n" << text;
    }

    struct Outcome {
        long returnCode;
        intptr_t secondary; // the error number, when not 0
        std::string result;
    };

    // Runs a script through the server: `arguments` empty sends a command
    // message naming it, else a function call with those arguments. The
    // port its answer comes to is shown in `published` while it runs;
    // `trace` gets the interpreter's lines the answer carries.
    Outcome Run(const std::string& name, const std::vector<std::string>& arguments = {},
        std::atomic<MsgPort*>* published = nullptr, std::string* trace = nullptr)
    {
        MsgPort* replyPort = CreateMsgPort();
        if (published)
            published->store(replyPort);
        RexxMsg* message = CreateRexxMsg(replyPort, "Tavrel", "Echo.0");
        std::string full = name[0] == '/' ? name : runtime.path + "/" + name;
        message->rm_Args[0] = CreateArgstring(full.c_str(), long(full.size()));
        message->rm_Action = arguments.empty() ? RXCOMM : RXFUNC | uint32_t(arguments.size());
        for (size_t slot = 0; slot < arguments.size(); ++slot)
            message->rm_Args[slot + 1] = CreateArgstring(arguments[slot].c_str(), long(arguments[slot].size()));
        EXPECT_TRUE(PutToScriptServer(message));
        while (!GetMsg(replyPort))
            WaitPort(replyPort);
        Outcome outcome{message->rm_Result1, message->rm_Result2, ""};
        if (message->rm_Result1 == 0 && message->rm_Result2) {
            auto* result = reinterpret_cast<char*>(message->rm_Result2);
            outcome.result = result;
            outcome.secondary = 0;
        }
        if (trace)
            *trace = message->rm_Trace ? message->rm_Trace : "";
        FreeRexxMsg(message);
        DeleteMsgPort(replyPort);
        return outcome;
    }
};

TEST_F(Scripts, RunAndAnswer)
{
    struct Row {
        const char* what;
        std::string name;
        std::vector<std::string> arguments;
        Outcome expected;
    } rows[] = {
        {"host commands: RC, RESULT, variables, any case of the address", "commands.tavrel", {"-"},
            {0, 0, "0 abc | 20 LIT | 0 hello | 0 up"}},
        {"arguments of a function call", "args.tavrel", {"x", "7"}, {0, 0, "2 | x | 7"}},
        {"the argument string behind a command's name", "args.tavrel hello world", {}, {0, 0, "1 | hello world | "}},
        {"the extension added in lower case", "args", {"e"}, {0, 0, "1 | e | "}},
        {"an exit value", "three.tavrel", {}, {3, 0, ""}},
        {"an error stops it", "bad.tavrel", {}, {20, 41, ""}},
        {"not found", "missing", {}, {5, 1, ""}},
    };
    for (const Row& row : rows) {
        Outcome outcome = Run(row.name, row.arguments);
        EXPECT_EQ(outcome.returnCode, row.expected.returnCode) << row.what;
        EXPECT_EQ(outcome.secondary, row.expected.secondary) << row.what;
        EXPECT_EQ(outcome.result, row.expected.result) << row.what;
    }
    // A failure carries the interpreter's own line about it.
    std::string trace;
    Run("bad.tavrel", {}, nullptr, &trace);
    EXPECT_NE(trace.find("Error 41 running \"" + runtime.path + "/bad.tavrel\", line 2"), std::string::npos) << trace;
    Run("three.tavrel", {}, nullptr, &trace);
    EXPECT_EQ(trace, "");
    // The server counts a script done just after its answer is out.
    for (int tries = 0; tries < 2000 && ScriptsAtWork() != 0; ++tries)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    EXPECT_EQ(ScriptsAtWork(), 0);
}

// Scripts run at once, each in a task of its own.
TEST_F(Scripts, SeveralAtOnce)
{
    std::vector<std::thread> callers;
    std::atomic<int> right{0};
    for (int caller = 0; caller < 4; ++caller) {
        callers.emplace_back([this, caller, &right] {
            std::string value = std::to_string(caller);
            if (Run("args.tavrel", {value, "y"}).result == "2 | " + value + " | y")
                right.fetch_add(1);
        });
    }
    for (std::thread& caller : callers)
        caller.join();
    EXPECT_EQ(right.load(), 4);
}

void WaitForScriptsAtWork(int count)
{
    for (int tries = 0; tries < 5000 && ScriptsAtWork() != count; ++tries)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    ASSERT_EQ(ScriptsAtWork(), count);
}

// A script that never ends, in a loop of its own or of host commands, is
// halted by the port its answer goes to; another script runs on, and the
// next script starts as ever.
TEST_F(Scripts, HaltingStopsOnlyTheScriptsOfOnePort)
{
    Write("forever.tavrel", Forever);
    Write("commands_forever.tavrel", "do forever; 'abc'; end\n");
    for (const char* runaway : {"forever.tavrel", "commands_forever.tavrel"}) {
        std::atomic<MsgPort*> haltedPort{nullptr}, sparedPort{nullptr};
        Outcome halted{}, spared{};
        std::thread first([&] { halted = Run(runaway, {}, &haltedPort); });
        std::thread second([&] { spared = Run("forever.tavrel", {}, &sparedPort); });
        while (!haltedPort.load() || !sparedPort.load())
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        HaltScripts(haltedPort.load());
        first.join();
        EXPECT_EQ(halted.returnCode, 20) << runaway;
        EXPECT_EQ(halted.secondary, 4) << runaway;
        EXPECT_EQ(Run("three.tavrel").returnCode, 3) << runaway;
        WaitForScriptsAtWork(1);
        HaltScripts(sparedPort.load());
        second.join();
        EXPECT_EQ(spared.returnCode, 20) << runaway;
    }
}

// The end of the server halts what still runs instead of waiting for it.
TEST_F(Scripts, StoppingTheServerHaltsARunawayScript)
{
    Write("forever.tavrel", Forever);
    Outcome halted{};
    std::thread caller([&] { halted = Run("forever.tavrel"); });
    WaitForScriptsAtWork(1);
    StopScriptServer();
    caller.join();
    EXPECT_EQ(halted.returnCode, 20);
    ASSERT_TRUE(StartScriptServer(nullptr, "Tavrel"));
    EXPECT_EQ(Run("three.tavrel").returnCode, 3);
}

// Scripts asked for on one connection come back in the order asked, though
// the first ends long after the second.
TEST_F(Scripts, PipelinedScriptsAnswerInOrder)
{
    Write("slow.tavrel", "do 200000; end; return 'slow'\n");
    int fd = ConnectHostSocket(ScriptServerName);
    ASSERT_GE(fd, 0);
    auto request = [this](const char* name, const char* argument) {
        return std::string("Echo.0") + '\0' + runtime.path + "/" + name + '\0' + argument + '\0';
    };
    std::vector<HostReply> replies;
    ASSERT_TRUE(PipelinedRequests(fd, {request("slow.tavrel", ""), request("args.tavrel", "fast")}, 2, &replies));
    ASSERT_EQ(replies.size(), 2u);
    EXPECT_EQ(replies[0].Result, "slow");
    EXPECT_EQ(replies[1].Result, "1 | fast | ");
    close(fd);
}

} // namespace
