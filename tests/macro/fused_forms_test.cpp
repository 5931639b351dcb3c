// The fused forms of the commonest shapes give what the tokens they stand
// for give, value, error and variables alike: at the edges of the integer
// operators, with string variables and string constants, nested, and on
// random expressions compared with the same program run unfused.
#include "macro_test_support.h"

#include "macro/command_pool.h"
#include "macro/compiler.h"
#include "macro/evaluator.h"
#include "macro/fuse_tokens.h"
#include "macro/variables.h"
#include "platform/exec/memory.h"

#include <iterator>
#include <random>

// The edges the random expressions below rarely reach.
TEST_F(MacroTest, FusedShapesWrapAndFailAsTheOperatorsDo)
{
    const LanguageRow rows[] = {
        {"A=2147483647:B=1:A=A+B:A", "-2147483648"},
        {"A=-2147483648:B=-1:A=A/B:A", "-2147483648"},
        {"A=-2147483648:A%4294967295", "0"},
        {"A=1:B=63:A<<B", "0"},
        {"A=-8:B=33:C=A>>B:C", "-1"},
        {"A=5:A=A/0\nA", "5"},
        {"A=5:B=0:A=A%B\nA", "5"},
        {"A=5:B=A^4294967295", "#215"},
        // An untyped source stays untyped; an untyped target takes the
        // integer's type.
        {"B=A+1\nA=\"x\"", "\"x\""},
        {"B=A+1\nB=\"x\"", "#232"},
    };
    CheckRows(rows);
}

TEST_F(MacroTest, FusedShapesOnStringsTakeTheStringRules)
{
    const LanguageRow rows[] = {
        {"A=\"abc\":B=2:C=A<<B:C", "\"c\""},
        {"A=\"x\":B=\"y\":C=A+B:C", "\"xy\""},
        {"A=\"x\":B=A+1", "#236"},
        {"T=\"s\":T=B+1\nT", "\"s\""},
        {"A=1:A+\"b\"", "#236"},
        {"A=\"x\":WHILE(A<1,B=1)", "#236"},
        {"A=\"x\"\nRESET(A)\nB=A+1", "#236"},
    };
    CheckRows(rows);
}

TEST_F(MacroTest, FusedShapesNestedInLoopsAndFunctions)
{
    const LanguageRow rows[] = {
        {"A=1:B=2:(A=A+B)+(B=A*B)", "9"},
        {"A=3:IF(A<5,B=A+5,0)", "8"},
        {"S=0:FOR(I=0,I<10,S=S+I,I=I+1):S", "45"},
        {"DEF G(N)=S=0:FOR(I=1,I<=N,S=S+I,I=I+1):S\nG(100)", "5050"},
        {"DEF G(N)=S=0:FOR(I=1,I<=N,S=S+I,I=I+1):S\nS=\"x\"\nG(3)", "#232"},
        {"EXEC(\"A=2:B=A*A+A\")\nB", "6"},
    };
    CheckRows(rows);
}

TEST_F(MacroTest, FusedShapesOfArgumentsTakeWhatTheCallerPassed)
{
    const LanguageRow rows[] = {
        {"DEF F(X,Y)=X*Y\nA=6:F(A,7)", "42"},
        {"DEF F(X)=X+1\nF(B)", "1"},
        {"DEF F(X,Y)=X-Y\nF(-2147483648,1)", "2147483647"},
        {"DEF F(X,Y)=X%Y\nF(-2147483648,-1)", "0"},
        {"DEF F(X,Y)=X/Y\nF(1,0)", "#219"},
        {"DEF F(X)=X+1\nA=\"s\":F(A)", "#236"},
        {"DEF F(X)=X<<1\nF(\"abc\")", "\"bc\""},
        {"DEF F(X,Y)=X=X+Y\nA=1:F(A,2):A", "3"},
    };
    CheckRows(rows);
}

namespace {

// Random expressions over a few variables, integer constants at the edges
// of 32 bits (negative ones too, by wrapping) and strings, with every
// operator: the shapes the fused forms take and the ones around them.
class ExpressionMaker {
public:
    explicit ExpressionMaker(uint32_t seed)
        : random_(seed) { }

    std::string Command()
    {
        std::string command = Expression(3);
        for (uint32_t more = Below(3); more > 0; --more)
            command += ":" + Expression(3);
        return command;
    }

private:
    std::string Operand()
    {
        static const char* const Operands[] = {"A", "B", "C", "D", "A", "B", "C", "D",
            "0", "1", "2", "7", "31", "32", "63", "64", "2147483647", "2147483648", "4294967295", "4294967294",
            "\"ab\"", "\"\""};
        return Operands[Below(std::size(Operands))];
    }
    std::string Expression(int depth)
    {
        static const char* const Operators[] = {"+", "-", "*", "/", "^", "&", "|", "?", "%",
            ":", "<", ">", "<<", ">>", "<=", ">=", "==", "<>"};
        static const char* const Variables[] = {"A", "B", "C", "D"};
        const uint32_t shape = depth > 0 ? Below(6) : 0;
        switch (shape) {
        case 0:
            return Operand();
        case 1:
        case 2:
            return Operand() + Operators[Below(std::size(Operators))] + Operand();
        case 3:
            return std::string(Variables[Below(4)]) + "=" + Expression(depth - 1);
        case 4:
            return "(" + Expression(depth - 1) + ")" + Operators[Below(std::size(Operators))] + Expression(depth - 1);
        default:
            return Expression(depth - 1) + Operators[Below(std::size(Operators))] + Expression(depth - 1);
        }
    }
    uint32_t Below(size_t limit) { return std::uniform_int_distribution<uint32_t>(0, uint32_t(limit) - 1)(random_); }

    std::mt19937 random_;
};

// Evaluate's way with a command, the fused forms left out.
std::string RunUnfused(TextRecord* record, const std::string& command)
{
    CommandPool pool;
    MacroContext context{};
    context.Text = record;
    context.Pool = &pool;
    context.Tokens = static_cast<MacroToken*>(AllocVec(InitialTokens * sizeof(MacroToken), MEMF_ANY));
    context.Capacity = InitialTokens;
    MacroValue value{};
    if (CompileExpression(command.c_str(), &context) == 0)
        Execute(&value, &context);
    if (context.Error == 0 && ResolveValue(record, &value) != 0)
        context.Error = int16_t(MessageId::VariableTypeMismatch);
    std::string shown = context.Error ? "#" + std::to_string(context.Error)
        : value.Kind == KindInteger   ? std::to_string(value.Integer)
                                      : "\"" + std::string(value.String) + "\"";
    FreeVec(context.Tokens);
    FreeCommandPool(&pool);
    return shown;
}

std::string Variables(const TextRecord* record)
{
    std::string shown;
    for (int32_t index = 0; index < record->MacroVariableCount && record->MacroVariables[index].Name[0]; ++index) {
        const MacroVariable& row = record->MacroVariables[index];
        shown += std::string(row.Name) + "=" + std::to_string(row.Kind) + ":"
            + (row.Kind == KindString ? std::string(row.String ? row.String : "") : std::to_string(row.Integer)) + " ";
    }
    return shown;
}

} // namespace

TEST(FusedForms, RandomExpressionsGiveWhatTheUnfusedTokensGive)
{
    ExpressionMaker maker(1402);
    TextRecord* fused = nullptr;
    TextRecord* plain = nullptr;
    for (int command = 0; command < 20000; ++command) {
        if (command % 16 == 0) {
            if (fused) {
                FreeMacroRecord(fused);
                FreeMacroRecord(plain);
            }
            fused = NewMacroRecord();
            plain = NewMacroRecord();
        }
        const std::string text = maker.Command();
        ASSERT_EQ(RunCommand(fused, text), RunUnfused(plain, text)) << text;
        ASSERT_EQ(Variables(fused), Variables(plain)) << text;
    }
    FreeMacroRecord(fused);
    FreeMacroRecord(plain);
}
