#include "platform/clip/clip_units.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <mutex>

#include "platform/clip/desktop_clipboard.h"
#include "platform/clip/ftxt.h"
#include "platform/dos/volumes.h"

namespace {

std::mutex directoryLock;
std::string directorySet;

bool ValidUnit(int unit) { return unit >= 0 && unit < CLIP_UNITS; }

std::string UnitPath(const std::string& directory, int unit) {
  return directory + "/" + std::to_string(unit);
}

bool WriteAll(int fd, const uint8_t* data, size_t size) {
  size_t done = 0;
  while (done < size) {
    ssize_t put = write(fd, data + done, size - done);
    if (put < 0 && errno == EINTR) continue;
    if (put <= 0) return false;
    done += static_cast<size_t>(put);
  }
  return true;
}

// The clip directory, made when missing: the CLIPS: volume with its
// parents, a directory set by SetClipDirectory by itself.
bool EnsureClipDirectory(const std::string& directory) {
  if (directory.empty()) return false;
  if (directory == VolumeDirectory("CLIPS")) return EnsureVolumeDirectory("CLIPS");
  return mkdir(directory.c_str(), 0700) == 0 || errno == EEXIST;
}

bool WriteClipFile(int unit, const std::vector<uint8_t>& clip) {
  std::string directory = ClipDirectory();
  if (!EnsureClipDirectory(directory)) return false;
  // Unique among the threads of this program and among programs.
  static std::atomic<unsigned> serial{0};
  std::string temporary = directory + "/." + std::to_string(unit) + "-" + std::to_string(getpid()) +
                          "-" + std::to_string(serial++);
  int fd = open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
  if (fd < 0) return false;
  bool ok = WriteAll(fd, clip.data(), clip.size());
  ok = close(fd) == 0 && ok;
  ok = ok && rename(temporary.c_str(), UnitPath(directory, unit).c_str()) == 0;
  if (!ok) unlink(temporary.c_str());
  return ok;
}

bool ReadClipFile(int unit, std::vector<uint8_t>& clip) {
  std::string directory = ClipDirectory();
  if (directory.empty()) return false;
  int fd = open(UnitPath(directory, unit).c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) return errno == ENOENT;
  struct stat info {};
  bool ok = fstat(fd, &info) == 0 && S_ISREG(info.st_mode);
  if (ok) clip.resize(static_cast<size_t>(info.st_size));
  size_t done = 0;
  while (ok && done < clip.size()) {
    ssize_t got = read(fd, clip.data() + done, clip.size() - done);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) ok = false;
    else if (got == 0) clip.resize(done);  // the file shrank: take what there is
    else done += static_cast<size_t>(got);
  }
  close(fd);
  if (!ok) clip.clear();
  return ok;
}

}  // namespace

void SetClipDirectory(const std::string& directory) {
  std::lock_guard<std::mutex> hold(directoryLock);
  directorySet = directory;
}

std::string ClipDirectory() {
  {
    std::lock_guard<std::mutex> hold(directoryLock);
    if (!directorySet.empty()) return directorySet;
  }
  return VolumeDirectory("CLIPS");
}

bool WriteClipUnit(int unit, const std::vector<uint8_t>& clip) {
  if (!ValidUnit(unit) || !WriteClipFile(unit, clip)) return false;
  DesktopClipboard* desktop = unit == 0 ? GetDesktopClipboard() : nullptr;
  if (desktop != nullptr) {
    std::string text;
    ParseFtxtClip(clip.data(), clip.size(), text);
    desktop->WriteText(text);
  }
  return true;
}

bool ReadClipUnit(int unit, std::vector<uint8_t>& clip) {
  clip.clear();
  if (!ValidUnit(unit)) return false;
  DesktopClipboard* desktop = unit == 0 ? GetDesktopClipboard() : nullptr;
  std::string text;
  if (desktop != nullptr && desktop->ReadText(text)) {
    clip = MakeFtxtClip(text.data(), text.size());
    return !clip.empty();
  }
  return ReadClipFile(unit, clip);
}
