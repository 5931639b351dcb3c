#pragma once
// Reporting a failure that has no text window to show it in: during
// start-up, at the start of a process, in the main process.
//
// Until the program installs a dialog (once its display runs) a report is
// one line on standard error. With a dialog, the calling process blocks
// until the user has answered it; the dialog needs no record and no window
// of ours, so any process may report.
#include "platform/dos/paths.h"
#include "services/message_id.h"

#include <cstddef>

// Shows `body` under `title` with one button `button`, and returns when
// it has been answered. Called in the reporting process.
using AppErrorDialog = void (*)(const char* title, const char* body, const char* button);

// Installs the dialog, or with null goes back to the console form.
void SetAppErrorDialog(AppErrorDialog dialog);

// The dialog of a running display: the plain system requester.
void SystemRequesterDialog(const char* title, const char* body, const char* button);

// The dialog titled "Tavrel error" with the button "OK !", or the console.
void ReportAppError(const char* text);
void ReportAppErrorId(MessageId id);
