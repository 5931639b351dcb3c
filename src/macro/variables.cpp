#include "macro/variables.h"

#include "macro/command_pool.h"
#include "macro/regrow_block.h"
#include "platform/exec/memory.h"
#include "platform/utility/strings.h"
#include "text/record/text_record.h"

#include <cstring>

namespace {

// "" for a string variable emptied by RESET: it has the type but no block.
char EmptyText[1] = "";

} // namespace

int32_t FindVariable(TextRecord* record, const char* name)
{
    // Names equal but for case start with bytes that differ at most in
    // bit 0x20, in ISO 8859-1 as in ASCII: that settles most rows at once.
    const auto first = static_cast<unsigned char>(name[0]);
    int32_t index = 0;
    for (; index < record->MacroVariableCount && record->MacroVariables[index].Name[0]; ++index) {
        const auto rowFirst = static_cast<unsigned char>(record->MacroVariables[index].Name[0]);
        if (((rowFirst ^ first) & ~0x20u) == 0 && Stricmp(record->MacroVariables[index].Name, name) == 0)
            return index;
    }
    if (index == record->MacroVariableCount
        && !RegrowArray(&record->MacroVariables, &record->MacroVariableCount, index, index + VariableTableGrowth, MEMF_CLEAR))
        return -1;
    MacroVariable& row = record->MacroVariables[index];
    Strlcpy(row.Name, name, MaxVariableName + 1);
    row.Kind = KindNone;
    row.String = nullptr;
    return index;
}

int ResolveToInteger(const TextRecord* record, MacroValue* value)
{
    int32_t integer;
    if (!ReadInteger(record->MacroVariables, *value, &integer))
        return int(MessageId::VariableTypeMismatch);
    value->Kind = KindInteger;
    value->Integer = integer;
    return 0;
}

int ResolveValue(const TextRecord* record, MacroValue* value)
{
    if (value->Kind == KindString)
        return 0;
    if (value->Kind == KindVariable) {
        const MacroVariable& row = record->MacroVariables[value->Index];
        if (row.Kind == KindString) {
            value->Kind = KindString;
            value->String = row.String ? row.String : EmptyText;
            return 0;
        }
    }
    return ResolveToInteger(record, value);
}

int AssignVariable(MacroContext* context, MacroValue* left, const MacroValue* right)
{
    TextRecord* record = context->Text;
    if (left->Kind != KindVariable || left->Index < 0 || left->Index >= record->MacroVariableCount)
        return int(MessageId::AllocationImpossible);
    MacroVariable& row = record->MacroVariables[left->Index];
    if (right->Kind == KindInteger) {
        if (row.Kind == KindString)
            return int(MessageId::VariableTypeMismatch);
        row.Kind = KindInteger;
        row.Integer = right->Integer;
        *left = *right;
        return 0;
    }
    if (row.Kind == KindInteger)
        return int(MessageId::VariableTypeMismatch);
    if (row.Kind == KindString && row.String == right->String)
        return 0;
    const size_t length = std::strlen(right->String);
    char* copy = AllocLooseBlock(length + 1);
    if (copy)
        std::memcpy(copy, right->String, length + 1);
    AdoptLooseBlock(context->Pool, row.Kind == KindString ? row.String : nullptr);
    if (!copy) {
        row.Kind = KindNone;
        row.String = nullptr;
        return int(MessageId::NotEnoughMemory);
    }
    row.Kind = KindString;
    row.String = copy;
    return 0;
}

void ClearVariable(MacroContext* context, int32_t index, bool untype)
{
    MacroVariable& row = context->Text->MacroVariables[index];
    if (row.Kind == KindString)
        AdoptLooseBlock(context->Pool, row.String);
    row.String = nullptr;
    row.Integer = 0;
    if (untype)
        row.Kind = KindNone;
}

void FreeMacroVariables(TextRecord* record)
{
    for (int32_t index = record->MacroVariableCount - 1; index >= 0; --index) {
        MacroVariable& row = record->MacroVariables[index];
        if (row.Kind == KindString)
            FreeLooseBlock(row.String);
    }
    FreeVec(record->MacroVariables);
    record->MacroVariables = nullptr;
    record->MacroVariableCount = 0;
}
