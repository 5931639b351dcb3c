#include "platform/clip/qt/qt_desktop_clipboard.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QString>

#include <atomic>
#include <string>
#include <thread>

#include "clip_directory_fixture.h"
#include "platform/clip/clip_text.h"

namespace {

QGuiApplication& Application() {
  static int argc = 1;
  static char name[] = "clip_qt_tests";
  static char* argv[] = {name, nullptr};
  static QGuiApplication application(argc, argv);
  return application;
}

class QtClipboardTest : public ClipDirectoryTest {
 protected:
  void SetUp() override {
    ClipDirectoryTest::SetUp();
    Application();
    QGuiApplication::clipboard()->clear();
    InstallQtDesktopClipboard();
  }
  void TearDown() override {
    RemoveQtDesktopClipboard();
    ClipDirectoryTest::TearDown();
  }
};

std::string Utf8(const QString& text) { return text.toUtf8().toStdString(); }

TEST_F(QtClipboardTest, UnitZeroCrossesAsUtf8) {
  ASSERT_TRUE(WriteClipText(0, "caf\xE9\n", 5));
  EXPECT_EQ(Utf8(QGuiApplication::clipboard()->text()), "caf\xC3\xA9\n");

  // Another program copies text with characters beyond ISO 8859-1.
  QGuiApplication::clipboard()->setText(QString::fromUtf8("na\xC3\xAFve \xE2\x98\x83 \xF0\x9F\x98\x80!"));
  std::string text;
  ASSERT_EQ(ReadClipText(0, text), ClipStatus::Text);
  EXPECT_EQ(text, "na\xEFve  !");

  // Other units never touch the desktop.
  ASSERT_TRUE(WriteClipText(9, "nine", 4));
  EXPECT_EQ(ReadClipText(0, text), ClipStatus::Text);
  EXPECT_EQ(text, "na\xEFve  !");
}

TEST_F(QtClipboardTest, EmptyDesktopFallsBackToTheClipFile) {
  ASSERT_TRUE(WriteClipText(0, "saved", 5));
  QGuiApplication::clipboard()->clear();
  std::string text;
  EXPECT_EQ(ReadClipText(0, text), ClipStatus::Text);
  EXPECT_EQ(text, "saved");
  RemoveQtDesktopClipboard();
  ASSERT_TRUE(WriteClipText(0, "private", 7));
  EXPECT_TRUE(QGuiApplication::clipboard()->text().isEmpty());
}

// Texts use the clipboard from their own threads while the GUI thread runs
// its event loop.
TEST_F(QtClipboardTest, OtherThreadsGoThroughTheGuiThread) {
  QGuiApplication::clipboard()->setText(QString::fromUtf8("d\xC3\xA9j\xC3\xA0"));
  std::atomic<bool> done{false};
  std::string read;
  ClipStatus status = ClipStatus::Failed;
  bool written = false;
  std::thread text([&] {
    status = ReadClipText(0, read);
    written = WriteClipText(0, "\xE0 bient\xF4t", 9);
    done = true;
  });
  while (!done) QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
  text.join();
  EXPECT_EQ(status, ClipStatus::Text);
  EXPECT_EQ(read, "d\xE9j\xE0");
  EXPECT_TRUE(written);
  EXPECT_EQ(Utf8(QGuiApplication::clipboard()->text()), "\xC3\xA0 bient\xC3\xB4t");
}

}  // namespace
