#include "frame/report.h"

#include "platform/display/easy_request.h"
#include "platform/dos/paths.h"
#include "platform/utility/strings.h"
#include "services/messages.h"

#include <atomic>
#include <cstdio>
#include <cstring>

static std::atomic<AppErrorDialog> InstalledDialog{nullptr};
static std::atomic<long> ReportCount{0};

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
    ReportCount.fetch_add(1);
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

long AppErrorCount()
{
    return ReportCount.load();
}

void JoinPath(const char* directory, const char* name, char* output)
{
    output[0] = '\0';
    if (std::strlen(directory) < PathSize)
        std::memcpy(output, directory, std::strlen(directory) + 1);
    AddPart(output, name, JoinedPathSize);
}
