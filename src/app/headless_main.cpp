// tavrel-headless: the whole program on the headless display, driven by an
// event script (standard input, or --events FILE). The other arguments are
// those of tavrel.
#include "app/event_script.h"
#include "files/close_changes.h"
#include "frame/process/command_line.h"
#include "frame/process/main_process.h"
#include "platform/display/headless/headless_display.h"
#include "platform/exec/tasks.h"
#include "requesters/close_question.h"

#include <cstdio>
#include <cstring>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

int main(int argc, char** argv)
{
    std::string eventsPath;
    std::vector<std::string> arguments;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--events") == 0 && i + 1 < argc)
            eventsPath = argv[++i];
        else
            arguments.emplace_back(argv[i]);
    }
    if (AsksForUsage(arguments)) {
        PrintUsage(stdout, argv[0]);
        return 0;
    }
    std::ifstream file;
    std::istream* script = &std::cin;
    if (!eventsPath.empty()) {
        file.open(eventsPath);
        if (!file) {
            std::cerr << "error: can't read " << eventsPath << '\n';
            return 2;
        }
        script = &file;
    }

    HeadlessDisplay display;
    SetCloseQuestion(AskAboutChanges);
    int status = 0;
    display.SetDisplayLoop([&] { status = RunEventScript(*script, display, std::cout, std::cerr); });
    RunDisplay(display, [&] { MainProcess(arguments); });
    WaitForAllTasks();
    return status;
}
