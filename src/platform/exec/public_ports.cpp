#include "platform/exec/ports.h"

#include "platform/exec/port_record.h"

#include <mutex>

namespace {

struct PublicPorts {
    std::recursive_mutex lock;
    List ports;

    PublicPorts() { NewList(&ports); }
};

// Never destroyed: ports may be looked up while the program exits.
PublicPorts& ThePublicPorts()
{
    static PublicPorts* ports = new PublicPorts;
    return *ports;
}

} // namespace

void Forbid()
{
    ThePublicPorts().lock.lock();
}

void Permit()
{
    ThePublicPorts().lock.unlock();
}

MsgPort* CreatePort(const char* name, long priority)
{
    MsgPort* port = CreateMsgPort();
    if (!port || !name)
        return port;
    auto* record = static_cast<PortRecord*>(port);
    record->name = name;
    port->mp_Node.ln_Name = record->name.c_str();
    port->mp_Node.ln_Pri = static_cast<int>(priority);
    AddPort(port);
    return port;
}

void DeletePort(MsgPort* port)
{
    if (!port)
        return;
    RemPort(port);
    DeleteMsgPort(port);
}

void AddPort(MsgPort* port)
{
    PublicPorts& ports = ThePublicPorts();
    std::lock_guard<std::recursive_mutex> hold(ports.lock);
    Enqueue(&ports.ports, &port->mp_Node);
}

void RemPort(MsgPort* port)
{
    PublicPorts& ports = ThePublicPorts();
    std::lock_guard<std::recursive_mutex> hold(ports.lock);
    if (port->mp_Node.ln_Succ)
        Remove(&port->mp_Node);
}

MsgPort* FindPort(const char* name)
{
    PublicPorts& ports = ThePublicPorts();
    std::lock_guard<std::recursive_mutex> hold(ports.lock);
    return reinterpret_cast<MsgPort*>(FindName(&ports.ports, name));
}
