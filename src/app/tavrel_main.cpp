// tavrel: the program on the desktop.
#include "files/close_changes.h"
#include "frame/close_question.h"
#include "frame/main_process.h"
#include "frame/report.h"
#include "platform/clip/qt/qt_desktop_clipboard.h"
#include "platform/display/qt/qt_backend.h"
#include "platform/exec/tasks.h"

#include <string>
#include <vector>

int main(int argc, char** argv)
{
    std::vector<std::string> arguments(argv + 1, argv + argc);
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
