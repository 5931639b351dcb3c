// tavrel: the program on the desktop.
#include "files/close_changes.h"
#include "frame/process/command_line.h"
#include "frame/process/main_process.h"
#include "frame/window/report.h"
#include "platform/clip/qt/qt_desktop_clipboard.h"
#include "platform/display/qt/qt_backend.h"
#include "platform/exec/tasks.h"
#include "requesters/close_question.h"

#include <cstdio>
#include <string>
#include <vector>

int main(int argc, char** argv)
{
    std::vector<std::string> arguments(argv + 1, argv + argc);
    if (AsksForUsage(arguments)) {
        PrintUsage(stdout, argv[0]);
        return 0;
    }
    QtDisplayBackend display;
    // Clip unit 0 is the desktop's clipboard for as long as the program runs.
    InstallQtDesktopClipboard();
    int status = RunDisplay(display, [&] {
        // From here on failures are shown in a requester, not on the console.
        SetAppErrorDialog(SystemRequesterDialog);
        SetCloseQuestion(AskAboutChanges);
        MainProcess(arguments);
    });
    WaitForAllTasks();
    RemoveQtDesktopClipboard();
    return status;
}
