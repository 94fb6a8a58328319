#include "platform/program_folder.h"

#include <pwd.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "platform/files.h"
#include "platform/text.h"

namespace pyxis {

namespace {

namespace fs = std::filesystem;

constexpr char kName[] = "pyxisload";
constexpr char kDataParent[] = PYXIS_DATA_PARENT;  // as the build was configured: "share" as a rule
constexpr char kChosenFolder[] = "PYXISLOAD_FOLDER";
// Load File leaves images beside the program file, so this directory is the user's and its files alone are links.
constexpr char kSamples[] = "samples";
// As much as the window keeps of the current directory.
constexpr std::size_t kLongestFolder = 255;

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

std::string Home() {
  if (std::string home = Environment("HOME"); !home.empty()) return home;
  const passwd* user = getpwuid(getuid());
  return user == nullptr ? "/" : user->pw_dir;
}

// The installation's root, when the program lies in its bin or in its lib/pyxisload.
fs::path Prefix() {
  const fs::path here = ProgramDirectory();
  return here.filename() == kName ? here.parent_path().parent_path() : here.parent_path();
}

// Whether `folder`/`name` is a link to installed data: of this installation, of one before or of another, all end
// alike.
bool IsOurs(const fs::path& folder, const fs::path& name) {
  std::error_code error;
  const std::string target = fs::read_symlink(folder / name, error).string();
  return !error && target.ends_with((fs::path("/") / kDataParent / kName / name).string());
}

// What comes under the name meanwhile, such as the link of a second start, is left.
void Link(const fs::path& folder, const fs::path& name, const fs::path& data, std::error_code& error) {
  const fs::path link = folder / name;
  if (IsOurs(folder, name)) {
    if (fs::read_symlink(link, error) == data / name) return;
    fs::remove(link, error);
  }
  if (error || fs::exists(fs::symlink_status(link, error))) return;
  fs::create_symlink(data / name, link, error);
  if (error == std::errc::file_exists) error.clear();
}

// Links to data that an update has taken away.
void DropDeadLinks(const fs::path& folder, const fs::path& below, std::error_code& error) {
  for (fs::directory_iterator entry(folder / below, error), end; !error && entry != end; entry.increment(error)) {
    const fs::path name = below / entry->path().filename();
    std::error_code gone;
    if (IsOurs(folder, name) && !fs::exists(folder / name, gone)) fs::remove(folder / name, gone);
  }
}

// The entries of `data`/`below`.
void LinkEntries(const fs::path& folder, const fs::path& below, const fs::path& data, std::error_code& error) {
  DropDeadLinks(folder, below, error);
  for (fs::directory_iterator entry(data / below, error), end; !error && entry != end; entry.increment(error)) {
    const fs::path name = below / entry->path().filename();
    if (name != kSamples) {
      Link(folder, name, data, error);
    } else if (fs::symlink_status(folder / name, error).type() == fs::file_type::not_found ||
               fs::symlink_status(folder / name, error).type() == fs::file_type::directory) {
      fs::create_directories(folder / name, error);
      if (!error) LinkEntries(folder, name, data, error);
    }
    if (error) return;
  }
}

ProgramFolder Kept(const std::string& data) {
  ProgramFolder folder{UserFolder(), {}};
  if (!data.empty()) {
    folder.error = KeepCurrent(folder.path, data);
  } else if (!IsProgramFolder(folder.path)) {
    folder.error = folder.path + " is no program folder.";
  }
  return folder;
}

}  // namespace

std::string InstalledData() {
  std::string data = (Prefix() / kDataParent / kName).string();
  return IsProgramFolder(data) ? data : "";
}

bool IsInstalledData(const std::string& path) {
  const std::string data = InstalledData();
  std::error_code error;
  return !data.empty() && fs::canonical(path, error).string().starts_with(data + "/");
}

std::string LibraryDirectory() {
  const std::string installed = (Prefix() / "lib" / kName).string();
  return InstalledData().empty() ? ProgramDirectory() : installed;
}

bool IsProgramFolder(const std::string& directory) {
  std::error_code error;
  return fs::is_directory(fs::path(directory) / kHwFolder11, error);
}

std::string UserFolder() {
  std::string folder = Environment(kChosenFolder);
  if (folder.empty()) {
    // A relative path there is invalid and counts as none.
    std::string base = Environment("XDG_DATA_HOME");
    if (!base.starts_with('/')) base = Home() + "/.local/share";
    folder = base + "/" + kName;
  }
  std::error_code error;
  std::string whole = fs::absolute(folder, error).lexically_normal().string();
  if (whole.size() > 1 && whole.ends_with('/')) whole.pop_back();
  return whole;
}

std::string KeepCurrent(const std::string& folder, const std::string& data) {
  const auto failure = [&folder](const std::string& why) {
    return Printf("The program folder %s can't be used: %s.", folder.c_str(), why.c_str());
  };
  if (folder.size() > kLongestFolder) return failure("its path is too long");
  std::error_code error;
  fs::create_directories(folder, error);
  if (!error) LinkEntries(folder, {}, data, error);
  if (!error && access(folder.c_str(), W_OK | X_OK) != 0) error.assign(errno, std::generic_category());
  return error ? failure(error.message()) : "";
}

ProgramFolder WindowFolder(const std::string& data) {
  if (data.empty() && Environment(kChosenFolder).empty()) return {CurrentDirectory(), {}};
  return Kept(data);
}

ProgramFolder RunnerFolder(const std::string& data) {
  const bool chosen = !Environment(kChosenFolder).empty();
  if (!chosen && IsProgramFolder(CurrentDirectory())) return {CurrentDirectory(), {}};
  if (!chosen && data.empty() && !IsProgramFolder(UserFolder())) return {CurrentDirectory(), {}};
  return Kept(data);
}

}  // namespace pyxis
