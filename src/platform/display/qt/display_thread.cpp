#include "platform/display/qt/display_thread.h"

#include <QCoreApplication>
#include <QMetaObject>
#include <QThread>

bool OnDisplayThread() {
    QCoreApplication* application = QCoreApplication::instance();
    return application && QThread::currentThread() == application->thread();
}

void PostToDisplay(std::function<void()> work) {
    QMetaObject::invokeMethod(QCoreApplication::instance(), std::move(work), Qt::QueuedConnection);
}

void RunOnDisplay(const std::function<void()>& work) {
    if (OnDisplayThread()) {
        work();
        return;
    }
    QMetaObject::invokeMethod(QCoreApplication::instance(), work, Qt::BlockingQueuedConnection);
}
