#include "frame/process/start_text.h"

#include "frame/process/screen.h"
#include "frame/process/text_process.h"
#include "frame/protocol/app_globals.h"
#include "frame/protocol/command_message.h"
#include "frame/window/report.h"
#include "platform/dos/matchfirst.h"
#include "platform/exec/memory.h"
#include "platform/exec/tasks.h"
#include "services/messages.h"

#include <cstdio>
#include <cstring>
#include <mutex>
#include <new>

constexpr long ProcessNumberLimit = 1000;

// The one name buffer, and the search for a free number that fills it, may
// be reached from the main process and from a text (opening a file by
// macro) at once; this keeps two starts from taking the same number.
static std::mutex StartLock;
static char ProcessName[32];
static uint32_t OpeningCount;
static bool ScreenLater;

void StartTextsBeforeScreen(bool before)
{
    std::lock_guard<std::mutex> hold(StartLock);
    ScreenLater = before;
}

long StartTextProcess(MsgPort* mainPort, const char* fileName)
{
    std::lock_guard<std::mutex> hold(StartLock);
    // Texts are numbered from 1, and the number is the one in the text's
    // name and host port: the first text a script addresses is Tavrel.1,
    // and the result below, the text's number, names its port.
    long number = 0;
    for (; number < ProcessNumberLimit; ++number) {
        std::snprintf(ProcessName, sizeof ProcessName, "Tavrel.%ld", number + 1);
        if (!FindTask(ProcessName))
            break;
    }

    if (!ScreenLater) {
        ObtainScreen();
        if (!Globals.Screen) {
            ReportAppErrorId(MessageId::ErrorOpeningScreen);
            return 0;
        }
    }

    void* memory = AllocVec(sizeof(CommandMessage), MEMF_PUBLIC | MEMF_CLEAR);
    if (!memory) {
        ReportAppErrorId(MessageId::NotEnoughMemory);
        return 0;
    }
    auto* start = new (memory) CommandMessage{};
    start->cm_Message.mn_Length = sizeof(CommandMessage);
    if (fileName) {
        size_t size = std::strlen(fileName) + 1;
        start->FileName = static_cast<char*>(AllocVec(size, MEMF_ANY));
        if (start->FileName)
            std::memcpy(start->FileName, fileName, size);
    }
    start->MainPortArg = mainPort;
    start->Code = CMD_START_TEXT;
    start->Spare = static_cast<int32_t>(++OpeningCount);
    start->Argument = ScreenLater ? StartBeforeScreen : 0;
    if (Globals.TextCount.load() != 0) {
        ObtainSemaphoreShared(&Globals.TextListLock);
        start->Sender = Globals.Texts.First;
        ReleaseSemaphore(&Globals.TextListLock);
    }

    Task* process = CreateNewProc(ProcessName, TextProcessEntry);
    if (!process) {
        FreeVec(start->FileName);
        FreeVec(start);
        return 0;
    }
    // Counted before the message goes out: the text could otherwise end
    // and be counted off before it was counted on.
    Globals.TextCount.fetch_add(1);
    PutMsg(process->pr_MsgPort, &start->cm_Message);
    return number + 1;
}

long StartFromPattern(MsgPort* mainPort, const char* pattern)
{
    AnchorPath anchor;
    long count = 0;
    if (MatchFirst(pattern, &anchor) != 0) {
        ReportAppErrorId(MessageId::NoFileToLoad);
    } else {
        do {
            if (!StartTextProcess(mainPort, anchor.ap_Path.c_str()))
                break;
            ++count;
        } while (MatchNext(&anchor) == 0);
    }
    MatchEnd(&anchor);
    return count;
}
