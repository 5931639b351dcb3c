#pragma once
// Message ports. A port belongs to the task that created it and signals
// that task with its own bit when a message arrives. Messages are never
// copied: a pointer put at a port is the pointer taken off it.
//
// Ports come only from CreateMsgPort or CreatePort. Any thread may put to
// any port; only the owner waits at it (WaitPort) or deletes it.
#include "platform/exec/lists.h"

#include <cstdint>

struct Task;
struct MsgPort;

struct Message {
    Node mn_Node;           // ln_Type: NT_MESSAGE, or NT_REPLYMSG once replied
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

// A private port of the calling task with a new signal bit; null on failure
// (also when the task has no free bit).
MsgPort* CreateMsgPort();
// The port must be empty or its messages are left to their owners. Returns
// only after a PutMsg that is under way at the port has finished. Null is
// allowed.
void DeleteMsgPort(MsgPort* port);

// A public port of the calling task that FindPort finds by `name` (copied);
// with a null name a private port. Among ports of one name, FindPort finds
// the one of highest priority, the oldest of those.
MsgPort* CreatePort(const char* name, long priority);
void DeletePort(MsgPort* port);      // removes it from the public list first
// Makes a port public under mp_Node.ln_Name and mp_Node.ln_Pri; the name is
// not copied and must outlive the port's public life.
void AddPort(MsgPort* port);
void RemPort(MsgPort* port);         // a port that is not public is left alone
// A public port by exact name, or null. The result may vanish once the
// caller lets go of the public list; see Forbid/Permit.
MsgPort* FindPort(const char* name);
// Held around FindPort + PutMsg so that the port cannot be deleted between
// the two. Re-entrant for the holder. Nothing that waits may be done while
// holding it: every public port change waits for it.
void Forbid();
void Permit();

// Queues without blocking (beyond the queue's short lock) and signals the
// port's owner.
void PutMsg(MsgPort* port, Message* message);
// The oldest message, or null.
Message* GetMsg(MsgPort* port);
// Puts the message at its mn_ReplyPort; without one, marks it NT_FREEMSG
// and does nothing else.
void ReplyMsg(Message* message);
// Blocks until the port holds a message and returns it without removing it.
// Only the port's owner may wait at it.
Message* WaitPort(MsgPort* port);
// Signal mask of a port's bit.
uint32_t PortSignal(const MsgPort* port);
