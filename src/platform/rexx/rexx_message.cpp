#include "platform/rexx/rexx_message.h"

#include "platform/exec/memory.h"
#include "platform/rexx/rexx_variables.h"

#include <cstring>
#include <new>

namespace {

// An argstring is its length and its bytes, the length stored in front.
struct ArgstringHeader {
    long Length;
};

} // namespace

char* CreateArgstring(const char* text, long length)
{
    if (length < 0)
        return nullptr;
    auto* header = static_cast<ArgstringHeader*>(AllocVec(sizeof(ArgstringHeader) + size_t(length) + 1, MEMF_PUBLIC));
    if (!header)
        return nullptr;
    header->Length = length;
    char* bytes = reinterpret_cast<char*>(header + 1);
    if (length > 0)
        std::memcpy(bytes, text, size_t(length));
    bytes[length] = 0;
    return bytes;
}

void DeleteArgstring(char* argstring)
{
    if (argstring)
        FreeVec(reinterpret_cast<ArgstringHeader*>(argstring) - 1);
}

long LengthArgstring(const char* argstring)
{
    return (reinterpret_cast<const ArgstringHeader*>(argstring) - 1)->Length;
}

RexxMsg* CreateRexxMsg(MsgPort* replyPort, const char* extension, const char* host)
{
    void* block = AllocVec(sizeof(RexxMsg), MEMF_PUBLIC | MEMF_CLEAR);
    if (!block)
        return nullptr;
    auto* message = new (block) RexxMsg;
    message->rm_Node.mn_ReplyPort = replyPort;
    message->rm_Node.mn_Length = sizeof(RexxMsg);
    message->rm_Node.mn_Node.ln_Type = NT_MESSAGE;
    bool copied = true;
    if (extension)
        copied = (message->rm_FileExt = CreateArgstring(extension, long(std::strlen(extension)))) != nullptr;
    if (copied && host)
        copied = (message->rm_CommAddr = CreateArgstring(host, long(std::strlen(host)))) != nullptr;
    if (!copied) {
        DeleteRexxMsg(message);
        return nullptr;
    }
    return message;
}

void DeleteRexxMsg(RexxMsg* message)
{
    if (!message)
        return;
    DeleteArgstring(message->rm_FileExt);
    DeleteArgstring(message->rm_CommAddr);
    message->~RexxMsg();
    FreeVec(message);
}

void FreeRexxMsg(RexxMsg* message)
{
    if (!message)
        return;
    for (char*& argument : message->rm_Args)
        DeleteArgstring(argument);
    if (message->rm_Result1 == 0)
        DeleteArgstring(reinterpret_cast<char*>(message->rm_Result2));
    DeleteArgstring(message->rm_Trace);
    DeleteRexxMsg(message);
}

int SetRexxVarFromMsg(const char* name, const char* value, RexxMsg* message)
{
    if (!message || !message->rm_Variables || !name || !*name)
        return 10;
    message->rm_Variables->Pending.emplace_back(name, value ? value : "");
    return 0;
}
