#include "platform/rexx/host_ports.h"

#include "platform/rexx/host_sockets.h"
#include "platform/utility/strings.h"

#include <mutex>
#include <string>
#include <vector>

namespace {

struct HostPortEntry {
    MsgPort* Port;
    std::string Name;
};

struct HostPortList {
    std::mutex Lock;
    std::vector<HostPortEntry> Entries;
};

// Never destroyed: scripts may still look a name up while the program ends.
HostPortList& Ports()
{
    static HostPortList* list = new HostPortList;
    return *list;
}

MsgPort* FindHostPort(const std::vector<HostPortEntry>& entries, const char* name)
{
    MsgPort* folded = nullptr;
    for (const HostPortEntry& entry : entries) {
        if (entry.Name == name)
            return entry.Port;
        if (!folded && Stricmp(entry.Name.c_str(), name) == 0)
            folded = entry.Port;
    }
    return folded;
}

} // namespace

MsgPort* OpenHostPort(const char* name)
{
    MsgPort* port = CreatePort(name, 0);
    if (!port)
        return nullptr;
    {
        std::lock_guard<std::mutex> hold(Ports().Lock);
        Ports().Entries.push_back({port, name});
    }
    OpenHostSocket(name);
    return port;
}

void WithdrawHostPort(MsgPort* port)
{
    if (!port)
        return;
    std::string name;
    {
        std::lock_guard<std::mutex> hold(Ports().Lock);
        std::vector<HostPortEntry>& entries = Ports().Entries;
        for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
            if (entry->Port == port) {
                name = entry->Name;
                entries.erase(entry);
                break;
            }
        }
    }
    if (!name.empty())
        CloseHostSocket(name.c_str());
    RemPort(port);
}

bool PutToHostPort(const char* name, Message* message)
{
    std::lock_guard<std::mutex> hold(Ports().Lock);
    MsgPort* port = FindHostPort(Ports().Entries, name);
    if (!port)
        return false;
    PutMsg(port, message);
    return true;
}
