#include "platform/clip/qt/qt_desktop_clipboard.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QString>

#include <atomic>
#include <string>
#include <thread>

#include "clip_directory_fixture.h"
#include "platform/clip/clip_text.h"

namespace {

class QtClipboardTest : public ClipDirectoryTest {
 protected:
  void SetUp() override {
    ClipDirectoryTest::SetUp();
    static int argc = 1;
    static char name[] = "clip_qt_tests";
    static char* argv[] = {name, nullptr};
    static QGuiApplication application(argc, argv);
    clipboard_ = QGuiApplication::clipboard();
    clipboard_->clear();
    InstallQtDesktopClipboard();
  }
  void TearDown() override {
    RemoveQtDesktopClipboard();
    ClipDirectoryTest::TearDown();
  }
  std::string Desktop() const { return clipboard_->text().toUtf8().toStdString(); }
  QClipboard* clipboard_ = nullptr;
};

TEST_F(QtClipboardTest, UnitZeroCrossesAsUtf8) {
  ASSERT_TRUE(WriteClipText(0, "caf\xE9\n", 5));
  EXPECT_EQ(Desktop(), "caf\xC3\xA9\n");
  // Another program copies text with characters beyond ISO 8859-1.
  clipboard_->setText(QString::fromUtf8("na\xC3\xAFve \xE2\x98\x83 \xF0\x9F\x98\x80!"));
  std::string text;
  ASSERT_EQ(ReadClipText(0, text), ClipStatus::Text);
  EXPECT_EQ(text, "na\xEFve  !");
  // An empty desktop leaves unit 0 to its file; without the hook the
  // desktop is not touched.
  clipboard_->clear();
  EXPECT_EQ(ReadClipText(0, text), ClipStatus::Text);
  EXPECT_EQ(text, "caf\xE9\n");
  RemoveQtDesktopClipboard();
  ASSERT_TRUE(WriteClipText(0, "private", 7));
  EXPECT_EQ(Desktop(), "");
}

// A text's own thread reaches the clipboard through the GUI thread, which
// runs its event loop meanwhile.
TEST_F(QtClipboardTest, OtherThreadsGoThroughTheGuiThread) {
  clipboard_->setText(QString::fromUtf8("d\xC3\xA9j\xC3\xA0"));
  std::atomic<bool> done{false};
  std::string read;
  bool written = false;
  std::thread text([&] {
    EXPECT_EQ(ReadClipText(0, read), ClipStatus::Text);
    written = WriteClipText(0, "\xE0 bient\xF4t", 9);
    done = true;
  });
  while (!done) QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
  text.join();
  EXPECT_EQ(read, "d\xE9j\xE0");
  EXPECT_TRUE(written);
  EXPECT_EQ(Desktop(), "\xC3\xA0 bient\xC3\xB4t");
}

}  // namespace
