#pragma once
// Helpers for the frame tests: texts whose records are built by the test
// thread itself, standing in for text processes, so that main's handlers
// can be driven message by message.
#include "frame/protocol/app_globals.h"
#include "frame/protocol/command_message.h"
#include "platform/exec/memory.h"
#include "platform/exec/ports.h"
#include "platform/exec/tasks.h"
#include "text/record/create_text_record.h"
#include "text/record/text_record.h"

#include <cstring>
#include <vector>

// A text record with real ports, registered in TextList as main would.
inline TextRecord* AddFakeText(const char* directory, const char* name)
{
    TextRecord* record = CreateTextRecord(directory);
    std::strncpy(record->FileName, name, FileNameSize - 1);
    AddTextTail(&Globals.Texts, record);
    return record;
}

// Codes of the messages waiting at a text's command port, taken off it.
inline std::vector<int> TakeCommands(TextRecord* record, std::vector<intptr_t>* arguments = nullptr)
{
    std::vector<int> codes;
    while (Message* message = GetMsg(record->CommandPort)) {
        auto* command = reinterpret_cast<CommandMessage*>(message);
        codes.push_back(command->Code);
        if (arguments)
            arguments->push_back(command->Argument);
        FreeVec(command);
    }
    return codes;
}

// The next order at a text's command port, waited for and taken off it:
// its code and the position it carries (Argument, Spare); code 0 when none.
struct TakenOrder {
    int code = 0;
    intptr_t argument = 0;
    int32_t spare = 0;
};

inline TakenOrder TakeOrder(TextRecord* record)
{
    WaitPort(record->CommandPort);
    auto* message = reinterpret_cast<CommandMessage*>(GetMsg(record->CommandPort));
    if (!message)
        return {};
    TakenOrder order{message->Code, message->Argument, message->Spare};
    FreeVec(message);
    return order;
}
