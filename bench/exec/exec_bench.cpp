// Message passing between two tasks: the synchronous round trip a text
// process makes with every SendToMainWait, and the one-way stream of
// messages into a port.
#include "platform/exec/exec.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <vector>

namespace {

// Replies to every message at its pr_MsgPort until it gets `quit`.
Task* StartEchoTask(Message* quit)
{
    return CreateNewProc("echo", [quit] {
        MsgPort* port = FindTask(nullptr)->pr_MsgPort;
        for (;;) {
            WaitPort(port);
            Message* message = GetMsg(port);
            ReplyMsg(message);
            if (message == quit)
                return;
        }
    });
}

void RoundTrip(benchmark::State& state)
{
    MsgPort* replyPort = FindTask(nullptr)->pr_MsgPort;
    Message quit;
    quit.mn_ReplyPort = replyPort;
    Task* echo = StartEchoTask(&quit);
    Message request;
    request.mn_ReplyPort = replyPort;

    std::vector<double> trips;
    for (auto _ : state) {
        auto start = std::chrono::steady_clock::now();
        PutMsg(echo->pr_MsgPort, &request);
        WaitPort(replyPort);
        GetMsg(replyPort);
        trips.push_back(std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start).count());
    }
    PutMsg(echo->pr_MsgPort, &quit);
    WaitPort(replyPort);
    GetMsg(replyPort);
    WaitForAllTasks();

    std::nth_element(trips.begin(), trips.begin() + trips.size() / 2, trips.end());
    state.counters["median_us"] = trips[trips.size() / 2];
}
BENCHMARK(RoundTrip)->UseRealTime();

// Counts messages at its pr_MsgPort and signals `producer` after each
// `batch`; ends at `quit`.
Task* StartCountingTask(Task* producer, uint32_t doneSignal, long batch, Message* quit)
{
    return CreateNewProc("counter", [=] {
        MsgPort* port = FindTask(nullptr)->pr_MsgPort;
        long received = 0;
        for (;;) {
            WaitPort(port);
            while (Message* message = GetMsg(port)) {
                if (message == quit)
                    return;
                if (++received == batch) {
                    received = 0;
                    Signal(producer, doneSignal);
                }
            }
        }
    });
}

void OneWayThroughput(benchmark::State& state)
{
    const long batch = 100000;
    int doneBit = AllocSignal(-1);
    Message quit;
    Task* counter = StartCountingTask(FindTask(nullptr), 1u << doneBit, batch, &quit);
    std::vector<Message> messages(batch);

    for (auto _ : state) {
        for (Message& message : messages)
            PutMsg(counter->pr_MsgPort, &message);
        Wait(1u << doneBit);
    }
    PutMsg(counter->pr_MsgPort, &quit);
    WaitForAllTasks();
    FreeSignal(doneBit);
    state.SetItemsProcessed(state.iterations() * batch);
}
BENCHMARK(OneWayThroughput)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace
