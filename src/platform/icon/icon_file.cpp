// Reading and writing ".info" files, and the per-thread error they leave.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <string>
#include <vector>

#include "platform/dos/volumes.h"
#include "platform/icon/diskobject_codec.h"
#include "platform/icon/icon.h"
#include "platform/icon/icon_errors.h"
#include "platform/icon/owned_disk_object.h"

namespace {

// Icons are small; a bigger file is not taken for one.
constexpr off_t kMaxIconFileSize = 16 * 1024 * 1024;

thread_local IconError lastError = IconError::None;

std::string InfoPath(const char* name) { return ExpandVolumePath(name) + ".info"; }

bool ReadWholeFile(const std::string& path, std::vector<uint8_t>& bytes, IconError& error) {
  int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) {
    error = errno == ENOENT || errno == ENOTDIR ? IconError::NotFound : IconError::ReadFailed;
    return false;
  }
  struct stat info {};
  bool ok = fstat(fd, &info) == 0 && S_ISREG(info.st_mode);
  if (ok && info.st_size > kMaxIconFileSize) {
    close(fd);
    error = IconError::BadFormat;
    return false;
  }
  if (ok) {
    bytes.resize(static_cast<size_t>(info.st_size));
    size_t done = 0;
    while (ok && done < bytes.size()) {
      ssize_t got = read(fd, bytes.data() + done, bytes.size() - done);
      if (got < 0 && errno == EINTR) continue;
      if (got <= 0) ok = false;
      else done += static_cast<size_t>(got);
    }
  }
  close(fd);
  if (!ok) error = IconError::ReadFailed;
  return ok;
}

// Writes to a private temporary name beside the target and renames it over,
// so the icon is replaced whole or not at all. The temporary name is short
// and of its own: the icon's name may already be as long as a name can be.
bool ReplaceFile(const std::string& path, const std::vector<uint8_t>& bytes) {
  static std::atomic<unsigned> serial{0};
  const size_t slash = path.rfind('/');
  const std::string directory = slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
  std::string temporary = directory + ".icon-" + std::to_string(getpid()) + "-" + std::to_string(serial++);
  int fd = open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
  if (fd < 0) return false;
  size_t done = 0;
  bool ok = true;
  while (ok && done < bytes.size()) {
    ssize_t put = write(fd, bytes.data() + done, bytes.size() - done);
    if (put < 0 && errno == EINTR) continue;
    if (put <= 0) ok = false;
    else done += static_cast<size_t>(put);
  }
  ok = close(fd) == 0 && ok;
  ok = ok && rename(temporary.c_str(), path.c_str()) == 0;
  if (!ok) unlink(temporary.c_str());
  return ok;
}

}  // namespace

IconError IconErr() { return lastError; }

void SetIconErr(IconError error) { lastError = error; }

DiskObject* GetDiskObject(const char* name) {
  if (name == nullptr) {
    lastError = IconError::NotFound;
    return nullptr;
  }
  std::vector<uint8_t> bytes;
  IconError error = IconError::None;
  if (!ReadWholeFile(InfoPath(name), bytes, error)) {
    lastError = error;
    return nullptr;
  }
  DiskObject* object = DecodeDiskObject(bytes.data(), bytes.size(), error);
  if (object == nullptr) lastError = error;
  return object;
}

bool PutDiskObject(const char* name, const DiskObject* diskObject) {
  if (name == nullptr || diskObject == nullptr) {
    lastError = IconError::BadObject;
    return false;
  }
  std::vector<uint8_t> bytes;
  IconError error = IconError::None;
  if (!EncodeDiskObject(*diskObject, bytes, error)) {
    lastError = error;
    return false;
  }
  if (!ReplaceFile(InfoPath(name), bytes)) {
    lastError = IconError::WriteFailed;
    return false;
  }
  return true;
}

void FreeDiskObject(DiskObject* diskObject) {
  delete static_cast<OwnedDiskObject*>(diskObject);
}
