#pragma once
// Work handed to the display thread, the thread that runs the QApplication.
// The display thread never waits for a task: it only posts, and a task
// that needs a result blocks itself until the display thread has run the
// work.
#include <functional>

// True on the thread of the QApplication.
bool OnDisplayThread();

// Queues `work` for the display thread and returns at once; on the display
// thread itself it still runs later, from the event loop.
void PostToDisplay(std::function<void()> work);

// Runs `work` on the display thread and returns when it is done. Called on
// the display thread it runs at once, so it never deadlocks there.
void RunOnDisplay(const std::function<void()>& work);

// The program's tasks start while the display thread still builds the
// QApplication. Between these two, work handed to the display thread
// waits until the application exists; no task touches Qt before.
void HoldDisplayWork();
void ReleaseDisplayWork();

// Returns once work may be handed to the display thread. A task that uses
// Qt itself, not through the display thread, calls this first.
void WaitForDisplay();
