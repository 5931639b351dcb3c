#include "echo_hosts.h"

#include "platform/rexx/rexx_message.h"
#include "platform/rexx/script_server.h"

#include <chrono>
#include <fstream>
#include <thread>

namespace {

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
    // message naming it, else a function call with those arguments.
    Outcome Run(const std::string& name, const std::vector<std::string>& arguments = {})
    {
        MsgPort* replyPort = CreateMsgPort();
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
            DeleteArgstring(result);
            outcome.secondary = 0;
        }
        for (char* argument : message->rm_Args)
            DeleteArgstring(argument);
        DeleteRexxMsg(message);
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

} // namespace
