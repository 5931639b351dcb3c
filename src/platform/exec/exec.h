#pragma once
// The exec layer: tasks on threads, signals, message ports, semaphores and
// memory. Names and behaviour are the ones the editor's code is written
// against, carried out on threads.
#include "platform/exec/lists.h"
#include "platform/exec/memory.h"
#include "platform/exec/ports.h"
#include "platform/exec/semaphores.h"
#include "platform/exec/tasks.h"
