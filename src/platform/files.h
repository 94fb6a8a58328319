// Files by Windows-like names. A name is looked up exactly first, then without regard to letter case, component by
// component; of several names that differ in case only the exact one wins, else the first in byte order. A new file is
// created in the directory that the look-up found, under the name as given.
#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace pyxis {

#ifdef _WIN32
inline constexpr char kPathSeparator = '\\';
#else
inline constexpr char kPathSeparator = '/';
#endif

// The existing path that `name` stands for, or, if there is none, the path under which it would be created.
std::string ResolvePath(const std::string& name);

// An open stream; closed with the object.
struct FileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

// fopen on the resolved path; a null File when it fails, when the path is no plain file (a directory, a pipe, a device)
// or when the file is larger than 256 MiB.
File OpenFile(const std::string& name, const char* mode);

// The whole file, or nothing when it can't be opened or read.
std::optional<std::vector<std::uint8_t>> ReadWholeFile(const std::string& name);

// fopen for reading and update; of installed data, which nothing writes to, for reading alone.
File OpenForUpdate(const std::string& name);
// The whole file, but only when it can be opened so.
std::optional<std::vector<std::uint8_t>> ReadForUpdate(const std::string& name);

// All bytes of an open stream from its start, or nothing when the read fails.
std::optional<std::vector<std::uint8_t>> ReadStream(std::FILE* file);
// The same into `bytes`, in place of what it holds; false when the read fails.
bool ReadStream(std::FILE* file, std::vector<std::uint8_t>& bytes);

// Replaces the whole file, in place. False when the file can't be created or a byte couldn't be written.
bool WriteWholeFile(const std::string& name, std::span<const std::uint8_t> bytes);

// Deletes the file; one that isn't there is no failure.
void RemoveFile(const std::string& name);

// Length of an open stream in bytes; the position is kept.
long FileLength(std::FILE* file);

// A file that takes new contents in place of the old: created if need be, overwritten and cut to length by Write. It is
// empty when the object ends without a good Write. Overwriting spares the file system the cost of freeing the old
// contents first, which is most of the time of a small conversion.
class ReplacedFile {
 public:
  ReplacedFile() = default;
  explicit ReplacedFile(const std::string& name);
  ~ReplacedFile();
  ReplacedFile(ReplacedFile&& other) noexcept;
  ReplacedFile& operator=(ReplacedFile&& other) noexcept;
  bool IsOpen() const { return descriptor_ >= 0; }
  // Once; closes the file. False when not every byte could be written.
  bool Write(std::span<const std::uint8_t> bytes);

 private:
  void Close(bool keep);
  int descriptor_ = -1;
};

// Closes and tells whether everything that was written has reached the file (a full disk shows here at the latest).
bool CloseFile(File file);

// The directory of the running program, without a trailing separator.
std::string ProgramDirectory();

// The current directory, without a trailing separator.
std::string CurrentDirectory();

}  // namespace pyxis
