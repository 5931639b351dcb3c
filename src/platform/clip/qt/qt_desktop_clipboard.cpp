#include "platform/clip/qt/qt_desktop_clipboard.h"

#include "platform/display/qt/display_thread.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMetaObject>
#include <QString>
#include <QThread>

namespace {

// Runs `work` on the GUI thread and waits for it. False without a GUI
// application, or once it is going down and its loop may no longer run.
template <typename Work>
bool OnGuiThread(Work work) {
  // The program's tasks start while the application is still being built.
  WaitForDisplay();
  QCoreApplication* application = QGuiApplication::instance();
  if (qobject_cast<QGuiApplication*>(application) == nullptr || QCoreApplication::closingDown()) {
    return false;
  }
  if (QThread::currentThread() == application->thread()) {
    work();
    return true;
  }
  return QMetaObject::invokeMethod(application, work, Qt::BlockingQueuedConnection);
}

QtDesktopClipboard desktopClipboard;

}  // namespace

bool QtDesktopClipboard::ReadText(std::string& latin1) {
  latin1.clear();
  QString text;
  if (!OnGuiThread([&text] { text = QGuiApplication::clipboard()->text(); })) return false;
  if (text.isEmpty()) return false;
  for (char32_t c : text.toUcs4()) {
    if (c <= 0xFF) latin1.push_back(static_cast<char>(c));
  }
  return true;
}

void QtDesktopClipboard::WriteText(const std::string& latin1) {
  QString text = QString::fromLatin1(latin1.data(), static_cast<qsizetype>(latin1.size()));
  OnGuiThread([&text] {
    if (text.isEmpty()) QGuiApplication::clipboard()->clear();
    else QGuiApplication::clipboard()->setText(text);
  });
}

void InstallQtDesktopClipboard() { SetDesktopClipboard(&desktopClipboard); }

void RemoveQtDesktopClipboard() {
  if (GetDesktopClipboard() == &desktopClipboard) SetDesktopClipboard(nullptr);
}
