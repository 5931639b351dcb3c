#include "platform/display/qt/display_thread.h"

#include <QCoreApplication>
#include <QMetaObject>
#include <QThread>

#include <atomic>
#include <condition_variable>
#include <mutex>

namespace {

std::mutex GateLock;
std::condition_variable GateOpened;
// Work passes at once unless the display thread is building its
// application; the flag spares every later call the lock.
std::atomic<bool> GateOpen{true};

}  // namespace

void WaitForDisplay() {
    if (GateOpen.load(std::memory_order_acquire))
        return;
    std::unique_lock<std::mutex> hold(GateLock);
    GateOpened.wait(hold, [] { return GateOpen.load(std::memory_order_acquire); });
}

bool OnDisplayThread() {
    QCoreApplication* application = QCoreApplication::instance();
    return application && QThread::currentThread() == application->thread();
}

void PostToDisplay(std::function<void()> work) {
    WaitForDisplay();
    QMetaObject::invokeMethod(QCoreApplication::instance(), std::move(work), Qt::QueuedConnection);
}

void RunOnDisplay(const std::function<void()>& work) {
    WaitForDisplay();
    if (OnDisplayThread()) {
        work();
        return;
    }
    QMetaObject::invokeMethod(QCoreApplication::instance(), work, Qt::BlockingQueuedConnection);
}

void HoldDisplayWork() {
    std::lock_guard<std::mutex> hold(GateLock);
    GateOpen.store(false, std::memory_order_release);
}

void ReleaseDisplayWork() {
    {
        std::lock_guard<std::mutex> hold(GateLock);
        GateOpen.store(true, std::memory_order_release);
    }
    GateOpened.notify_all();
}
