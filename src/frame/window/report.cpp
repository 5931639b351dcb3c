#include "frame/window/report.h"

#include "platform/display/easy_request.h"
#include "platform/dos/paths.h"
#include "platform/utility/strings.h"
#include "services/messages.h"

#include <atomic>
#include <cstdio>
#include <cstring>

static std::atomic<AppErrorDialog> InstalledDialog{nullptr};

void SetAppErrorDialog(AppErrorDialog dialog)
{
    InstalledDialog.store(dialog);
}

void SystemRequesterDialog(const char* title, const char* body, const char* button)
{
    EasyStruct easy;
    easy.es_Title = title;
    easy.es_TextFormat = body;
    easy.es_GadgetFormat = button;
    EasyRequestArgs(nullptr, &easy);
}

void ReportAppError(const char* text)
{
    AppErrorDialog dialog = InstalledDialog.load();
    if (!dialog) {
        std::fprintf(stderr, "%s\n", text);
        return;
    }
    dialog(GetString(MessageId::TavrelError), text, GetString(MessageId::Ok));
}

void ReportAppErrorId(MessageId id)
{
    ReportAppError(GetString(id));
}
