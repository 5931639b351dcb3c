#pragma once
// Message ports. A port belongs to the task that created it and signals
// that task with its own bit when a message arrives. Messages are never
// copied: a pointer put at a port is the pointer taken off it.
#include "platform/exec/lists.h"

#include <cstdint>

struct Task;
struct MsgPort;

struct Message {
    Node mn_Node;
    MsgPort* mn_ReplyPort = nullptr;
    uint16_t mn_Length = 0;
};

struct MsgPort {
    Node mp_Node;           // ln_Name is the public name, or null
    Task* mp_SigTask = nullptr;
    int mp_SigBit = -1;
    // The queue itself is private to the exec layer.
    struct Queue;
    Queue* mp_Queue = nullptr;
};

// A private port of the calling task with a new signal bit; null on failure.
MsgPort* CreateMsgPort();
// The port must be empty or its messages are left to their owners.
void DeleteMsgPort(MsgPort* port);

// A public port of the calling task that FindPort finds by `name` (copied).
MsgPort* CreatePort(const char* name, long priority);
void DeletePort(MsgPort* port);      // removes it from the public list first
void AddPort(MsgPort* port);         // makes a port public under mp_Node.ln_Name
void RemPort(MsgPort* port);
// A public port by exact name, or null. The result may vanish once the
// caller lets go of the public list; see Forbid/Permit.
MsgPort* FindPort(const char* name);
// Held around FindPort + PutMsg so that the port cannot be deleted between
// the two. Re-entrant for the holder.
void Forbid();
void Permit();

// Queues without blocking and signals the port's owner.
void PutMsg(MsgPort* port, Message* message);
// The oldest message, or null.
Message* GetMsg(MsgPort* port);
// Puts the message at its mn_ReplyPort; without one, does nothing.
void ReplyMsg(Message* message);
// Blocks until the port holds a message and returns it without removing it.
Message* WaitPort(MsgPort* port);
// Signal mask of a port's bit.
uint32_t PortSignal(const MsgPort* port);
