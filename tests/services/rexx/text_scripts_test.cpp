#include "../../running_program.h"

#include "platform/exec/memory.h"
#include "platform/rexx/script_server.h"

#include <cstring>

namespace {

using TextScripts = RunningProgram;

// A text that ends while a script it started never ends halts the script
// instead of waiting for it for ever; the program then ends as ever.
TEST_F(TextScripts, EndingATextHaltsItsEndlessScript)
{
    Write(Path("forever.tavrel"), "/* */\ndo forever\nend\n");
    Start({});
    ASSERT_NE(Globals.Texts.First, nullptr);
    const std::string command = "CALL(\"" + Path("forever.tavrel") + "\")";
    auto* copy = static_cast<char*>(AllocVec(command.size() + 1, MEMF_PUBLIC));
    std::memcpy(copy, command.c_str(), command.size() + 1);
    ASSERT_NE(SendToText(Globals.Texts.First, CMD_RUN_MACRO, reinterpret_cast<intptr_t>(copy)), 0);
    for (int tries = 0; tries < 5000 && ScriptsAtWork() == 0; ++tries)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    ASSERT_EQ(ScriptsAtWork(), 1);
    EndProgram();
    EXPECT_EQ(ScriptsAtWork(), 0);
}

} // namespace
