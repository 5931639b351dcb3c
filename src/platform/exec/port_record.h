#pragma once
// Internal to the exec layer: the whole record behind a MsgPort. Every port
// the layer hands out is a PortRecord; its queue is a singly linked chain
// through mn_Node.ln_Succ, under the queue's lock.
#include "platform/exec/ports.h"

#include <atomic>
#include <mutex>
#include <string>

struct TaskRecord;

struct MsgPort::Queue {
    std::mutex lock;
    // Putters between their first and last touch of the port; the port is
    // deleted only when none is left.
    std::atomic<int> putters{0};
    Message* head = nullptr;
    Message* tail = nullptr;
};

struct PortRecord : MsgPort {
    MsgPort::Queue queue;
    std::string name;   // the copy CreatePort keeps of the public name
};

// A port of `owner` that signals `signalNumber`, already allocated to it;
// null on failure.
PortRecord* NewPort(TaskRecord* owner, int signalNumber);
