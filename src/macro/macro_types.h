#pragma once
// The records of the macro language: values, variables, tokens, the value
// stack and the state of one compile and run.
//
// A value is a signed 32-bit integer, a string, or a reference to a variable
// of the running text. Strings are zero-terminated 8-bit texts; a string
// value points into the command's pool, a variable's own block, or the
// strings of a user function, and is never freed on its own.
#include "services/message_id.h"

#include <cstdint>

struct TextRecord;
struct RexxMsg;
struct CommandPool;

// Kinds of a value, the same numbers as the tokens of the literals, so a
// literal becomes a value by copying.
constexpr int16_t KindNone = 0;
constexpr int16_t KindInteger = 20;
constexpr int16_t KindVariable = 21;
constexpr int16_t KindString = 22;

struct MacroValue {
    int16_t Kind;
    union {
        int32_t Integer; // KindInteger
        int32_t Index;   // KindVariable: row of the running text's VariableTable
        char* String;    // KindString
    };
};

// A variable name holds at most this many characters.
constexpr int MaxVariableName = 21;

// One row of a text's VariableTable (TextRecord::MacroVariables). A row
// with an empty Name is free; free rows are all at the end, and a row is
// never removed, so a variable keeps its index for the life of the text.
struct MacroVariable {
    char Name[24];
    int16_t Kind; // KindNone (untyped), KindInteger or KindString
    union {
        int32_t Integer;
        char* String; // the variable's own block (see command_pool.h), or
                      // null after RESET, which reads as ""
    };
};

// Token codes. Binary operators are 1 to 19, in the order of their
// characters below; literals share the value kinds.
//
// The negative codes are fused forms, which FuseTokens makes out of the
// commonest shapes after a compile. Each takes the place of the code of the
// variable or argument token that opens its shape (A stays the variable's
// row or the argument's number); the shape's other tokens stay as they were
// and hold the operands. A form runs the whole shape in one step when every
// operand in it stands for an integer and the operator can't fail;
// otherwise it runs as the token it replaced, and the shape goes on token
// by token, with every rule and error of the language.
enum MacroOp : int16_t {
    OpArgumentOpInteger = -6,     // X C op: X op C, X an argument
    OpArgumentOpArgument = -5,    // X Y op: X op Y, both arguments
    OpVariableOpInteger = -4,     // V C op: V op C
    OpVariableOpVariable = -3,    // V W op: V op W
    OpSetVariableOpInteger = -2,  // T V C op =: T = V op C
    OpSetVariableOpVariable = -1, // T V W op =: T = V op W
    OpFirstFused = OpArgumentOpInteger,
    OpEnd = 0,
    OpAdd = 1,
    OpSubtract,
    OpMultiply,
    OpDivide,
    OpPower,
    OpAnd,
    OpOr,
    OpXor,
    OpRemainder,
    OpSequence = 10,
    OpAssign = 11,
    OpLess = 12,
    OpGreater,
    OpShiftLeft = 14,
    OpShiftRight,
    OpLessEqual = 16,
    OpGreaterEqual,
    OpEqual = 18,
    OpNotEqual,
    OpInteger = 20,
    OpVariable,
    OpString,
    OpArgument = 23, // argument of a user function: A its number from 0
    OpPlus = 24,
    OpMinus,             // signs, each followed by its operand's segment
    OpDefine = 26,       // never emitted: names DEF in error reports
    OpFirstBuiltin = 27, // 27 + row - 1 calls built-in row `row`
    OpFirstUser = 153,   // 153 + index calls user function `index`
};

// A command holds at most this many characters and compiles to at most
// this many tokens.
constexpr int32_t MaxCommandLength = 32767;
constexpr int32_t MaxTokens = 32767;

struct MacroToken {
    int16_t Op;
    int32_t B; // calls: number of arguments; signs: 1
    union {
        int32_t A;  // operators, signs, calls: source offset; literal:
                    // the value; variable: its row; argument: its number
        char* Text; // string literal, in the pool of the command or the function
    };
};

// The value stack. A push at index i with i >= Capacity replaces the
// array by one of i + 10 elements, or twice the old, whichever is more. An index is a plain number; -1 is empty.
// Handlers must not keep a pointer into Values across a run of tokens.
struct MacroStack {
    int32_t Capacity;
    MacroValue* Values;
};

// The state of one compile and run. Error is sticky: every step tests it
// first and does nothing more once it is set.
struct MacroContext {
    int32_t Position; // compiling: offset in the text; running: offset of the current operator
    int16_t Error;    // MessageId of the fault, or 0
    int16_t Depth;    // compiling: parentheses open
    int32_t Capacity; // tokens allocated
    int32_t Count;    // compiling: tokens emitted; running: current token, -1 before the first
    MacroToken* Tokens;
    CommandPool* Pool; // owns every string the command makes
    TextRecord* Text;  // the text whose variables and window the command uses
    RexxMsg* Rexx;     // the script message being served, or null
    // While a user function's body runs: the stack index of its argument 0,
    // and the row in Text's table of each of the body's own variables
    // (token 21 then holds an index into this map). Null map outside a body.
    int32_t ArgumentBase;
    const int32_t* VariableMap;
};

// Stores `id` unless an error is already there: the first fault is the one
// reported.
inline void SetMacroError(MacroContext* context, MessageId id)
{
    if (context->Error == 0)
        context->Error = static_cast<int16_t>(id);
}
