#include "record/line_record.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "platform/hex_digits.h"
#include "platform/text.h"

namespace pyxis {

namespace {

using Json = nlohmann::ordered_json;

constexpr std::string_view kLineHead = "{\"time\":\"";
constexpr std::size_t kLongestTail = 65536;  // bytes; far above any line of ours

void Put(Json& object, const char* name, const std::string& text) {
  if (!text.empty()) object[name] = text;
}

void PutJob(Json& object, const LineJob& job) {
  Put(object, "checksum", job.checksum);
  Put(object, "converted", job.converted);
}

// Names may hold any bytes; those that are no UTF-8 become replacement characters.
std::string Dump(const Json& object) { return object.dump(-1, ' ', false, Json::error_handler_t::replace); }

Json ToJson(const LineEntry& entry) {
  Json object;
  object["time"] = entry.time;
  object["command"] = entry.command;
  Put(object, "ic", entry.job.ic);
  PutJob(object, entry.job);
  Put(object, "file", entry.file);
  Put(object, "serial", entry.serial);
  if (entry.series) {
    const LineSeries& series = *entry.series;
    object["series"] = {{"length", series.length},
                        {"address", Printf("%04X", series.address)},
                        {"start", series.start},
                        {"amount", series.amount},
                        {"direction", series.direction}};
  }
  Json& writer = object["writer"] = Json::object();
  Put(writer, "identity", entry.writer.identity);
  Put(writer, "hardware", entry.writer.hardware);
  Put(writer, "model", entry.writer.model);
  Put(writer, "firmware", entry.writer.firmware);
  return object;
}

bool IsDigits(const std::string& text) {
  return !text.empty() && text.find_first_not_of("0123456789ABCDEF") == std::string::npos;
}

// Throws where it isn't one.
RecordedSerial SerialOf(const Json& line, bool good) {
  const Json& series = line.at("series");
  const std::string address = series.at("address");
  return {
      line.at("ic"),
      line.value("checksum", ""),
      {series.at("length"), ParseHexDigits(address), series.at("start"), series.at("amount"), series.at("direction")},
      line.at("serial"),
      good};
}

// False where the line isn't one of a record. A line with a serial goes to `serials`; an interrupted one may have lost
// any of its parts.
bool TakeLine(const Json& line, std::vector<RecordedSerial>& serials) {
  bool interrupted = false;
  try {
    if (!line.at("time").is_string() || !line.at("command").is_string()) return false;
    const std::string result = line.at("result");
    interrupted = result == "interrupted";
    if (!line.contains("serial")) return true;
    const RecordedSerial taken = SerialOf(line, result == "OK");
    if (!IsDigits(taken.serial) || !IsDigits(taken.series.start) || !IsDigits(taken.series.amount)) return false;
    serials.push_back(taken);
    return true;
  } catch (const Json::exception&) {
    return interrupted;
  }
}

Json Parse(std::string_view text) { return Json::parse(text, nullptr, false); }

// How much of a torn line can be read once a brace or two are put behind it; what has got of a result is no result.
std::size_t ReadablePart(const std::string& tail, std::string& closing) {
  for (std::size_t end = tail.size(); end > 0; --end) {
    if (end < tail.size() && tail[end] != ',' && tail[end] != '}') continue;
    for (const char* braces : {"}", "}}"}) {
      const Json object = Parse(tail.substr(0, end) + braces);
      if (!object.is_object() || object.contains("result")) continue;
      closing = braces + 1;
      return end;
    }
  }
  return 0;
}

std::string_view WithoutBlankBlocks(std::string_view text) { return text.substr(0, text.find_last_not_of('\0') + 1); }

// Whether the text can be what a write left of a line: its beginning, and behind it blocks of a file system that never
// got theirs. Such blocks alone are no line's where none stands in front: another program's file.
bool IsTornLine(std::string_view text, bool first) {
  const std::string_view begun = WithoutBlankBlocks(text);
  if (begun.size() > kLongestTail || (begun.empty() && first)) return false;
  return kLineHead.starts_with(begun.substr(0, kLineHead.size()));
}

bool IsBlank(std::string_view line) { return line.find_first_not_of(" \t\r") == std::string_view::npos; }

// The folder in which the file lies, wherever a link to it does. Its entry is on the disk then, whoever made it.
bool SyncFolderOf(const std::string& path) {
  std::error_code error;
  const std::string folder = std::filesystem::canonical(path, error).parent_path().string();
  if (error) return errno = error.value(), false;
  const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return false;
  // File systems that can't bring a folder to the disk say EINVAL.
  const bool synced = fsync(descriptor) == 0 || errno == EINVAL;
  const int reason = errno;
  close(descriptor);
  errno = reason;
  return synced;
}

}  // namespace

LineRecord::~LineRecord() {
  if (IsOpen()) close(descriptor_);
}

std::string LineRecord::Trouble(const char* what) const {
  return Printf("The record %s %s (%s)", path_.c_str(), what, std::strerror(errno));
}

std::string LineRecord::Open(const std::string& path, bool create, Wanted wanted) {
  path_ = path;
  // Not waiting for the other end of a pipe.
  const int descriptor = open(path.c_str(), O_RDWR | O_APPEND | O_CLOEXEC | O_NONBLOCK | (create ? O_CREAT : 0),
                              S_IRUSR | S_IWUSR | S_IRGRP | S_IROTH);
  if (descriptor < 0) return Trouble("can't be opened");
  struct stat status {};
  std::string error;
  if (fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) {
    error = Printf("The record %s is no plain file", path.c_str());
  } else if (flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
    error = errno == EWOULDBLOCK ? Printf("The record %s is in use by another run", path.c_str())
                                 : Trouble("can't be locked");
  }
  if (!error.empty()) {
    close(descriptor);
    return error;
  }
  descriptor_ = descriptor;
  error = SyncFolderOf(path) ? TakeLines(wanted) : Trouble("can't be brought to the disk");
  if (!error.empty()) {
    close(descriptor_);
    descriptor_ = -1;
  }
  return error;
}

std::string LineRecord::TakeLines(Wanted wanted) {
  std::string text;
  char buffer[65536];
  ssize_t count = 0;
  while ((count = read(descriptor_, buffer, sizeof buffer)) > 0) text.append(buffer, static_cast<std::size_t>(count));
  if (count < 0) return Trouble("can't be read");
  bool first = true;
  std::size_t number = 1;
  for (std::size_t at = 0; at < text.size(); ++number) {
    const std::size_t feed = text.find('\n', at);
    const bool whole = feed != std::string::npos;
    const std::size_t next = whole ? feed + 1 : text.size();
    const std::string_view line = std::string_view(text).substr(at, (whole ? feed : next) - at);
    const bool last = next == text.size();
    if (whole && (IsBlank(line) || (wanted == Wanted::Nothing && !first && !last))) {
      at = next;
      continue;
    }
    const Json object = Parse(line);
    if (!whole || !TakeLine(object, serials_)) {
      const bool torn = last && (!whole || object.is_discarded()) && IsTornLine(line, first);
      if (torn) return Complete(std::string(line), at);
      return Printf("Line %zu of %s is none of a record; the file is left as it is", number, path_.c_str());
    }
    first = false;
    at = next;
  }
  return "";
}

// What is kept stays where it is, so another power cut here loses nothing of it.
std::string LineRecord::Complete(const std::string& line, std::size_t lineStart) {
  const std::string tail(WithoutBlankBlocks(line));
  std::string closing, rest;
  const std::size_t kept = ReadablePart(tail, closing);
  Json object = Json::object();
  if (kept > 0) {
    object = Parse(tail.substr(0, kept) + closing + "}");
    rest = closing + (object.empty() ? "" : ",");
  } else {
    rest = "{\"time\":\"\",\"command\":\"\",";
  }
  for (const char* name : {"time", "command"})
    if (kept > 0 && !object.contains(name)) rest += Printf("\"%s\":\"\",", name);
  if (ftruncate(descriptor_, static_cast<off_t>(lineStart + kept)) != 0) return Trouble("can't be completed");
  if (std::string error = Append(rest + "\"result\":\"interrupted\"}\n"); !error.empty()) return error;
  const auto serial = object.find("serial");
  const std::string which =
      serial != object.end() && serial->is_string() ? ", serial " + serial->get<std::string>() : "";
  notice_ = Printf("The last line of %s was half-written%s: it counts as not done", path_.c_str(), which.c_str());
  object["result"] = "interrupted";
  TakeLine(object, serials_);
  return "";
}

std::string LineRecord::Append(const std::string& text) {
  for (std::size_t at = 0; at < text.size();) {
    const ssize_t count = write(descriptor_, text.data() + at, text.size() - at);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) {
      broken_ = true;
      return Trouble("can't be written");
    }
    at += static_cast<std::size_t>(count);
  }
  if (fsync(descriptor_) == 0) return "";
  broken_ = true;
  return Trouble("can't be brought to the disk");
}

std::string LineRecord::Begin(const LineEntry& entry) {
  if (!IsOpen() || broken_ || lineOpen_) return Printf("The record %s takes no line", path_.c_str());
  current_ = {entry.job.ic, entry.job.checksum, entry.series.value_or(LineSeries{}), entry.serial, false};
  std::string text = Dump(ToJson(entry));
  text.pop_back();  // the brace that End puts behind the result
  lineOpen_ = true;
  return Append(text);
}

std::string LineRecord::End(const std::string& result, const LineJob* job) {
  if (broken_ || !lineOpen_) return Printf("The record %s takes no result", path_.c_str());
  Json object;
  if (job != nullptr) PutJob(object, *job);
  object["result"] = result;
  lineOpen_ = false;
  if (std::string error = Append("," + Dump(object).substr(1) + "\n"); !error.empty()) return error;
  if (current_.series.length == 0 || current_.serial.empty()) return "";
  current_.good = result == "OK";
  serials_.push_back(current_);
  return "";
}

}  // namespace pyxis
