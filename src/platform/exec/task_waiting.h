#pragma once
// Whether a task is at rest, for callers that wait until a group of tasks
// has nothing left to do (the event-script driver).
struct Task;

// True while `task` sleeps in Wait and none of the signals it waits for has
// arrived. A momentary answer: the task may be woken right after.
bool TaskIsWaiting(Task* task);
