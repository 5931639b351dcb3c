#include "platform/exec/ports.h"

#include "platform/exec/port_record.h"
#include "platform/exec/task_record.h"

#include <mutex>
#include <new>
#include <thread>

namespace {

Message* FromNode(Node* node)
{
    return reinterpret_cast<Message*>(node);
}

// The owner is signalled after the queue's lock is let go, so that it does
// not wake only to wait for that lock in GetMsg. The putter counts itself
// in `putters` until its last touch: an owner that takes the message and
// ends at once deletes the port first, which waits for the count to reach
// 0, so it is never signalled after it is gone.
void Enqueue(MsgPort* port, Message* message, uint8_t type)
{
    message->mn_Node.ln_Type = type;
    message->mn_Node.ln_Succ = nullptr;
    message->mn_Node.ln_Pred = nullptr;
    MsgPort::Queue& queue = *port->mp_Queue;
    queue.putters.fetch_add(1);
    {
        std::lock_guard<std::mutex> hold(queue.lock);
        if (queue.tail)
            queue.tail->mn_Node.ln_Succ = &message->mn_Node;
        else
            queue.head = message;
        queue.tail = message;
    }
    SignalFromPort(Record(port->mp_SigTask), PortSignal(port));
    queue.putters.fetch_sub(1);
}

} // namespace

PortRecord* NewPort(TaskRecord* owner, int signalNumber)
{
    auto* port = new (std::nothrow) PortRecord;
    if (!port)
        return nullptr;
    port->mp_Node.ln_Type = NT_MSGPORT;
    port->mp_SigTask = owner;
    port->mp_SigBit = signalNumber;
    port->mp_Queue = &port->queue;
    return port;
}

MsgPort* CreateMsgPort()
{
    TaskRecord* owner = CurrentTask();
    int bit = AllocSignal(-1);
    if (bit < 0)
        return nullptr;
    PortRecord* port = NewPort(owner, bit);
    if (!port)
        FreeSignalOf(owner, bit);
    return port;
}

void DeleteMsgPort(MsgPort* port)
{
    if (!port)
        return;
    // Waits for a putter that is still signalling: a few instructions.
    while (port->mp_Queue->putters.load() != 0)
        std::this_thread::yield();
    FreeSignalOf(Record(port->mp_SigTask), port->mp_SigBit);
    delete static_cast<PortRecord*>(port);
}

void PutMsg(MsgPort* port, Message* message)
{
    Enqueue(port, message, NT_MESSAGE);
}

Message* GetMsg(MsgPort* port)
{
    MsgPort::Queue& queue = *port->mp_Queue;
    std::lock_guard<std::mutex> hold(queue.lock);
    Message* message = queue.head;
    if (message) {
        queue.head = FromNode(message->mn_Node.ln_Succ);
        if (!queue.head)
            queue.tail = nullptr;
        message->mn_Node.ln_Succ = nullptr;
    }
    return message;
}

void ReplyMsg(Message* message)
{
    if (message->mn_ReplyPort)
        Enqueue(message->mn_ReplyPort, message, NT_REPLYMSG);
    else
        message->mn_Node.ln_Type = NT_FREEMSG;
}

Message* WaitPort(MsgPort* port)
{
    MsgPort::Queue& queue = *port->mp_Queue;
    for (;;) {
        {
            std::lock_guard<std::mutex> hold(queue.lock);
            if (queue.head)
                return queue.head;
        }
        Wait(PortSignal(port));
    }
}

uint32_t PortSignal(const MsgPort* port)
{
    return port->mp_SigBit >= 0 ? 1u << port->mp_SigBit : 0;
}
