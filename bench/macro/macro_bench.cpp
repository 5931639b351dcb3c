// The macro language's speed: the counting loop in a text with its window
// open, the compile of a long command, and a user function called a
// million times. `--loop` runs the counting loop once and prints its time,
// for run_vs_rexx_vim.sh to set beside REXX and vim.
#include "builtins/builtin_table.h"
#include "frame/window/text_window.h"
#include "macro/command_pool.h"
#include "macro/compiler.h"
#include "macro/evaluator.h"
#include "macro/fuse_tokens.h"
#include "macro/user_functions.h"
#include "macro/variables.h"
#include "platform/display/headless/headless_display.h"
#include "platform/display/intuition.h"
#include "platform/exec/memory.h"
#include "text/record/create_text_record.h"
#include "text/record/text_record.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

constexpr const char* SumLoop = "S=0:FOR(I=0,I<3000000,I=I+1,S=S+I)";

// A text with its window open on the headless display, the loop limit
// lifted.
class OpenText {
public:
    OpenText()
    {
        SetDisplayBackend(&display_);
        screen_ = LockPubScreen(nullptr);
        record_ = CreateTextRecord("/");
        NewWindow description;
        description.Width = 200;
        description.Height = 100;
        description.IDCMPFlags = TextWindowIDCMP;
        description.Flags = WFLG_CLOSEGADGET | WFLG_ACTIVATE;
        description.Screen = screen_;
        record_->Window = OpenWindow(&description);
        record_->TextState = WindowOpen;
        Run("SECURITY(2000000000)");
    }
    ~OpenText()
    {
        CloseWindow(record_->Window);
        record_->Window = nullptr;
        FreeMacroVariables(record_);
        FreeTextRecord(record_);
        UnlockPubScreen(nullptr, screen_);
        SetDisplayBackend(nullptr);
        FreeUserFunctions();
    }
    // The value, or -1 after an error (the benchmarks give no negative).
    long Run(const char* command)
    {
        CommandPool pool;
        MacroValue value{};
        const int error = Evaluate(record_, command, &value, &pool, nullptr);
        FreeCommandPool(&pool);
        return error ? -1 : value.Kind == KindInteger ? value.Integer : 0;
    }
    TextRecord* Record() { return record_; }

private:
    HeadlessDisplay display_;
    Screen* screen_ = nullptr;
    TextRecord* record_ = nullptr;
};

void BM_CountingLoop(benchmark::State& state)
{
    OpenText text;
    for (auto _ : state) {
        if (text.Run(SumLoop) < 0)
            state.SkipWithError("the loop failed");
    }
    state.counters["turns/s"] = benchmark::Counter(3e6, benchmark::Counter::kIsIterationInvariantRate);
}
BENCHMARK(BM_CountingLoop)->Unit(benchmark::kMillisecond);

// 250 characters: arithmetic, strings with doubled quotes, calls, nesting.
std::string LongCommand()
{
    std::string command =
        "A=1+2*3-4/5%6^2:B=\"text with \"\"quotes\"\"\"+\"more\":IF(A<>B<<1,FOR(I=0,I<10,I=I+1,S=S+I*(A&$FF)),"
        "WHILE(J<3,J=J+1)):C=(A|&B101)?(0X1F>>2):D=EXEC(\"1+1\"):INIT(E,F):RESET(G)";
    while (command.size() + 6 <= 250)
        command += ":K=K+1";
    command.resize(250, ' ');
    return command;
}

// The whole compile of a command, as Evaluate does it: tokens, then the
// fused forms.
void BM_Compile250Characters(benchmark::State& state)
{
    OpenText text;
    const std::string command = LongCommand();
    MacroContext context{};
    context.Text = text.Record();
    CommandPool pool;
    context.Pool = &pool;
    for (auto _ : state) {
        context.Tokens = static_cast<MacroToken*>(AllocVec(InitialTokens * sizeof(MacroToken), MEMF_ANY));
        context.Capacity = InitialTokens;
        if (CompileExpression(command.c_str(), &context) != 0)
            state.SkipWithError("the command doesn't compile");
        FuseTokens(context.Tokens, context.Count);
        FreeVec(context.Tokens);
        FreeCommandPool(&pool);
    }
    state.counters["characters"] = static_cast<double>(command.size());
    state.counters["tokens"] = context.Count;
}
BENCHMARK(BM_Compile250Characters)->Unit(benchmark::kMicrosecond);

// The same loop with the work inline and in a function: the difference is
// what a call costs.
void BM_MillionCalls(benchmark::State& state)
{
    OpenText text;
    text.Run("DEF SQ(X)=X*X+1");
    const char* loop = state.range(0) ? "FOR(I=0,I<1000000,I=I+1,S=SQ(I))" : "FOR(I=0,I<1000000,I=I+1,S=I*I+1)";
    for (auto _ : state) {
        if (text.Run(loop) < 0)
            state.SkipWithError("the loop failed");
    }
    state.SetLabel(state.range(0) ? "S=SQ(I)" : "S=I*I+1 inline");
}
BENCHMARK(BM_MillionCalls)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    InstallBuiltinFunctions();
    if (argc == 2 && std::strcmp(argv[1], "--loop") == 0) {
        OpenText text;
        const auto start = std::chrono::steady_clock::now();
        const long sum = text.Run(SumLoop);
        const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
        std::printf("%.3f %ld\n", took.count(), text.Run("S"));
        return sum < 0;
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
