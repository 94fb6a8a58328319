#include "platform/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/program_folder.h"
#include "platform/text.h"

namespace pyxis {

namespace {

// No program file, package or image comes near it.
constexpr off_t kLargestFile = off_t{256} << 20;

// Of a file that is made anew; the user's mask takes from it.
constexpr mode_t kNewFileMode = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;

// What is there and no file: a directory, or a pipe that would block.
bool IsNoFile(const std::string& path) {
  struct stat info {};
  return ::stat(path.c_str(), &info) == 0 && !S_ISREG(info.st_mode);
}

bool Exists(const std::string& path) {
  struct stat info {};
  return ::stat(path.c_str(), &info) == 0;
}

// The entry of `directory` that `name` stands for without regard to case; empty when there is none.
std::string EntryNoCase(const std::string& directory, const std::string& name) {
  std::string best;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(directory, error), end; !error && entry != end;
       entry.increment(error)) {
    const std::string candidate = entry->path().filename().string();
    if (EqualsNoCase(candidate, name) && (best.empty() || candidate < best)) best = candidate;
  }
  return best;
}

}  // namespace

std::string ResolvePath(const std::string& name) {
  if (name.empty() || Exists(name)) return name;
  std::string found = name.front() == '/' ? "/" : "";
  std::size_t at = 0;
  while (at < name.size()) {
    std::size_t end = name.find('/', at);
    if (end == std::string::npos) end = name.size();
    const std::string component = name.substr(at, end - at);
    const bool last = end == name.size();
    at = end + 1;
    if (component.empty()) continue;
    std::string exact = found + component;
    if (!Exists(exact)) {
      const std::string entry = EntryNoCase(found.empty() ? "." : found, component);
      if (!entry.empty()) {
        exact = found + entry;
      } else if (!last) {
        return name;  // a directory is missing: nothing to find and nowhere to create
      }
    }
    found = last ? exact : exact + '/';
  }
  return found;
}

File OpenFile(const std::string& name, const char* mode) {
  const std::string path = ResolvePath(name);
  if (IsNoFile(path)) return nullptr;
  File file(std::fopen(path.c_str(), mode));
  struct stat info {};
  if (!file || ::fstat(fileno(file.get()), &info) != 0 || info.st_size > kLargestFile) return nullptr;
  return file;
}

long FileLength(std::FILE* file) {
  struct stat info {};
  if (std::fflush(file) != 0 || ::fstat(fileno(file), &info) != 0) return 0;
  return static_cast<long>(info.st_size);
}

bool ReadStream(std::FILE* file, std::vector<std::uint8_t>& bytes) {
  if (std::fseek(file, 0, SEEK_SET) != 0) return false;
  bytes.resize(static_cast<std::size_t>(FileLength(file)));
  bytes.resize(bytes.empty() ? 0 : std::fread(bytes.data(), 1, bytes.size(), file));
  return std::ferror(file) == 0;
}

std::optional<std::vector<std::uint8_t>> ReadStream(std::FILE* file) {
  std::vector<std::uint8_t> bytes;
  if (!ReadStream(file, bytes)) return std::nullopt;
  return bytes;
}

std::optional<std::vector<std::uint8_t>> ReadWholeFile(const std::string& name) {
  const File file = OpenFile(name, "rb");
  if (!file) return std::nullopt;
  return ReadStream(file.get());
}

File OpenForUpdate(const std::string& name) {
  const std::string path = ResolvePath(name);
  File file = OpenFile(path, "r+b");
  return file || !IsInstalledData(path) ? std::move(file) : OpenFile(path, "rb");
}

std::optional<std::vector<std::uint8_t>> ReadForUpdate(const std::string& name) {
  const File file = OpenForUpdate(name);
  if (!file) return std::nullopt;
  return ReadStream(file.get());
}

bool CloseFile(File file) {
  if (!file) return false;
  const bool good = std::ferror(file.get()) == 0;
  return (std::fclose(file.release()) == 0) && good;
}

ReplacedFile::ReplacedFile(const std::string& name) {
  descriptor_ = ::open(ResolvePath(name).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, kNewFileMode);
  struct stat info {};
  // A pipe that nobody reads would take some bytes and then block.
  if (descriptor_ >= 0 && ::fstat(descriptor_, &info) == 0 && S_ISFIFO(info.st_mode)) Close(true);
}

ReplacedFile::~ReplacedFile() { Close(false); }

ReplacedFile::ReplacedFile(ReplacedFile&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}

ReplacedFile& ReplacedFile::operator=(ReplacedFile&& other) noexcept {
  std::swap(descriptor_, other.descriptor_);
  return *this;
}

void ReplacedFile::Close(bool keep) {
  if (!IsOpen()) return;
  if (!keep) static_cast<void>(::ftruncate(descriptor_, 0) == 0);
  ::close(std::exchange(descriptor_, -1));
}

bool ReplacedFile::Write(std::span<const std::uint8_t> bytes) {
  if (!IsOpen()) return false;
  std::size_t written = 0;
  while (written < bytes.size()) {
    const ssize_t count = ::write(descriptor_, bytes.data() + written, bytes.size() - written);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) break;
    written += static_cast<std::size_t>(count);
  }
  struct stat info {};
  bool good = written == bytes.size() && ::fstat(descriptor_, &info) == 0;
  if (good && S_ISREG(info.st_mode) && static_cast<std::size_t>(info.st_size) != bytes.size())
    good = ::ftruncate(descriptor_, static_cast<off_t>(bytes.size())) == 0;
  Close(good);
  return good;
}

bool WriteWholeFile(const std::string& name, std::span<const std::uint8_t> bytes) {
  return ReplacedFile(name).Write(bytes);
}

void RemoveFile(const std::string& name) { std::remove(ResolvePath(name).c_str()); }

std::string ProgramDirectory() {
  std::error_code error;
  const auto self = std::filesystem::read_symlink("/proc/self/exe", error);
  return error ? "." : self.parent_path().string();
}

std::string CurrentDirectory() {
  std::error_code error;
  const auto here = std::filesystem::current_path(error);
  return error ? "." : here.string();
}

}  // namespace pyxis
