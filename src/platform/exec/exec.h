#pragma once
// The exec layer: tasks on threads, signals, message ports, semaphores and
// memory. Names and behaviour follow the platform the editor was designed
// for, so the editor's code reads as its design does.
#include "platform/exec/lists.h"
#include "platform/exec/memory.h"
#include "platform/exec/ports.h"
#include "platform/exec/semaphores.h"
#include "platform/exec/tasks.h"
