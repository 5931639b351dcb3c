#include "macro/fuse_tokens.h"

namespace {

// The operators whose two integers the fused forms take: all but `:` and
// `=`, which aren't arithmetic.
bool IsIntegerOperator(int16_t op)
{
    return op >= OpAdd && op <= OpNotEqual && op != OpSequence && op != OpAssign;
}

// The fused code for the shape that opens at an argument token, or the
// argument's own code when none does. `next` as for FusedCode.
int16_t FusedArgumentCode(const int16_t (&next)[4])
{
    if (IsIntegerOperator(next[1]) && next[0] == OpInteger)
        return OpArgumentOpInteger;
    if (IsIntegerOperator(next[1]) && next[0] == OpArgument)
        return OpArgumentOpArgument;
    return OpArgument;
}

// The fused code for the shape that opens at a variable token, or the
// variable's own code when none does. `next` holds the codes behind it,
// OpEnd past the program's end.
int16_t FusedCode(const int16_t (&next)[4])
{
    const bool operand = next[1] == OpVariable || next[1] == OpInteger;
    if (next[0] == OpVariable && operand && IsIntegerOperator(next[2]) && next[3] == OpAssign)
        return next[1] == OpVariable ? OpSetVariableOpVariable : OpSetVariableOpInteger;
    if (IsIntegerOperator(next[1]) && next[0] == OpInteger)
        return OpVariableOpInteger;
    if (IsIntegerOperator(next[1]) && next[0] == OpVariable)
        return OpVariableOpVariable;
    return OpVariable;
}

} // namespace

void FuseTokens(MacroToken* tokens, int32_t count)
{
    // Front to back: a shape is read before any of its tokens changes, as
    // only the token at `index` is rewritten.
    for (int32_t index = 0; index < count; ++index) {
        const int16_t op = tokens[index].Op;
        if (op != OpVariable && op != OpArgument)
            continue;
        int16_t next[4];
        for (int32_t ahead = 0; ahead < 4; ++ahead)
            next[ahead] = index + 1 + ahead < count ? tokens[index + 1 + ahead].Op : int16_t(OpEnd);
        tokens[index].Op = op == OpVariable ? FusedCode(next) : FusedArgumentCode(next);
    }
}
