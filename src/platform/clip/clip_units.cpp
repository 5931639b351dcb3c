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
#include "platform/dos/errors.h"
#include "platform/dos/file_io.h"
#include "platform/dos/volumes.h"

namespace {

std::mutex directoryLock;
std::string directorySet;

bool ValidUnit(int unit) { return unit >= 0 && unit < CLIP_UNITS; }

std::string UnitPath(const std::string& directory, int unit) {
  return directory + "/" + std::to_string(unit);
}

// Clips pass between the user's programs only: a directory that another
// user owns or may write in could hand us a clip of theirs or take ours.
// Looked at without following a link, so the place can't be swapped for one.
bool IsPrivateDirectory(const std::string& directory) {
  struct stat info {};
  if (lstat(directory.c_str(), &info) != 0) {
    SetIoErrFromErrno(errno);
    return false;
  }
  if (!S_ISDIR(info.st_mode) || info.st_uid != geteuid() || (info.st_mode & (S_IWGRP | S_IWOTH)) != 0) {
    SetIoErr(ERROR_PLACE_NOT_PRIVATE);
    return false;
  }
  return true;
}

// The parent of the CLIPS: volume (the program's runtime directory, or the
// fallback in the temporary directory) is the program's own too; a set
// directory answers for itself alone.
bool IsPrivatePlace(const std::string& directory) {
  if (!IsPrivateDirectory(directory)) return false;
  if (directory != VolumeDirectory("CLIPS")) return true;
  return IsPrivateDirectory(directory.substr(0, directory.rfind('/')));
}

// The clip directory, made when missing: the CLIPS: volume with its
// parents, a directory set by SetClipDirectory by itself. False when it
// can't be made or isn't private.
bool EnsureClipDirectory(const std::string& directory) {
  if (directory.empty()) return false;
  if (directory == VolumeDirectory("CLIPS")) {
    if (!EnsureVolumeDirectory("CLIPS")) return false;
  } else if (mkdir(directory.c_str(), 0700) != 0 && errno != EEXIST) {
    SetIoErrFromErrno(errno);
    return false;
  }
  return IsPrivatePlace(directory);
}

bool WriteClipFile(int unit, const std::vector<uint8_t>& clip) {
  std::string directory = ClipDirectory();
  if (!EnsureClipDirectory(directory)) return false;
  // Unique among the threads of this program and among programs.
  static std::atomic<unsigned> serial{0};
  std::string temporary = directory + "/." + std::to_string(unit) + "-" + std::to_string(getpid()) +
                          "-" + std::to_string(serial++);
  int fd = open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
  if (fd < 0) {
    SetIoErrFromErrno(errno);
    return false;
  }
  // A failed write keeps its own error, not the close's.
  bool ok = WriteBytes(fd, reinterpret_cast<const char*>(clip.data()), clip.size());
  if (ok)
    ok = CloseFile(fd);
  else
    close(fd);
  if (ok && rename(temporary.c_str(), UnitPath(directory, unit).c_str()) != 0) {
    SetIoErrFromErrno(errno);
    ok = false;
  }
  if (!ok) unlink(temporary.c_str());
  return ok;
}

bool ReadClipFile(int unit, std::vector<uint8_t>& clip) {
  std::string directory = ClipDirectory();
  if (directory.empty()) return false;
  struct stat place {};
  if (lstat(directory.c_str(), &place) != 0 && errno == ENOENT) return true;  // nothing copied yet
  if (!IsPrivatePlace(directory)) return false;
  // Opened without blocking: a unit that is a FIFO must not hold the text
  // until someone writes to it. Only a regular file is a clip.
  int fd = open(UnitPath(directory, unit).c_str(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC);
  if (fd < 0) {
    if (errno == ENOENT) return true;
    SetIoErrFromErrno(errno);
    return false;
  }
  struct stat info {};
  bool ok = fstat(fd, &info) == 0 && S_ISREG(info.st_mode);
  if (ok) clip.resize(static_cast<size_t>(info.st_size));
  else SetIoErr(ERROR_OBJECT_WRONG_TYPE);
  size_t done = 0;
  while (ok && done < clip.size()) {
    long got = ReadBytes(fd, reinterpret_cast<char*>(clip.data() + done), clip.size() - done);
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
