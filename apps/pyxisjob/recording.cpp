// The line's record as the commands keep it.
#include <CLI/CLI.hpp>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <span>

#include "intake/package_files.h"
#include "job.h"
#include "platform/files.h"
#include "platform/text.h"
#include "shell/ground/app_state.h"

namespace pyxis::job {

namespace {

std::string UtcNow() {
  const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
  std::tm utc{};
  gmtime_r(&now, &utc);
  char text[32];
  std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &utc);
  return text;
}

// The package's stamp is local time and tells no zone.
std::string ConversionTime(std::span<const std::uint8_t> package) {
  const auto part = [package](TimePart which) { return static_cast<unsigned>(DownloadTimePart(package, which)); };
  const unsigned month = part(TimePart::Month);
  if (month < 1 || month > 12) return "";
  return Printf("%04u-%02u-%02uT%02u:%02u:%02u", part(TimePart::Year), month, part(TimePart::Day), part(TimePart::Hour),
                part(TimePart::Minute), part(TimePart::Second));
}

LineJob JobOf(std::span<const std::uint8_t> package) {
  LineJob job;
  job.ic = ChipNameOf(package);
  job.checksum = Printf("%04X", FieldWord(package, Field::ImageChecksum));
  job.converted = ConversionTime(package);
  return job;
}

const char* ResultWord(const Outcome& outcome) {
  switch (outcome.end) {
    case End::Good:
      return "OK";
    case End::Failed:
      return "NG";
    case End::Refused:
      return "refused";
    default:
      return "cancelled";
  }
}

bool Told(Job& job, const std::string& error) {
  if (error.empty()) return true;
  job.op.Tell(error, kMessageCaption, MessageIcon::Stop);
  return false;
}

}  // namespace

CLI::Option* AddRecord(CLI::App& command, Job& job) {
  return command.add_option("--record", job.recordFile, "append one JSON line a chip to this file")
      ->check(
          CLI::Validator([](std::string& name) { return std::string(name.empty() ? "an empty file name" : ""); }, ""));
}

bool OpenRecord(Job& job, const char* command, Wanted wanted, bool create) {
  if (job.recordFile.empty()) return true;
  if (!Told(job, job.record.Open(job.recordFile, create, wanted))) {
    Report(job, command, Failed(Reason::NotWritable));
    return false;
  }
  // On standard error with --json as well: it isn't about this run.
  if (!job.record.Notice().empty()) std::fprintf(stderr, "%s\n", job.record.Notice().c_str());
  return true;
}

LineJob JobOfBlock() {
  const auto& block = TheAppState().writer.WriterInfoBlock;
  if (TheAppState().selection.ChipNameText.empty()) return {};
  // A series from the menu may stand in the place of the job's description, and tells the name alone.
  return SerialRoadOf(block) == kSerialByMenu ? LineJob{ChipNameOf(block), "", ""} : JobOf(block);
}

LineJob JobOfPackage() {
  const auto package = ReadWholeFile(OptionPackagePath());
  return package && package->size() >= kInfoBlockSize ? JobOf(*package) : LineJob{};
}

bool BeginLine(Job& job, LineEntry entry) {
  if (!job.record.IsOpen()) return true;
  entry.time = UtcNow();
  entry.writer = WriterIdentity();
  if (entry.job.ic.empty()) entry.job = JobOfBlock();
  return Told(job, job.record.Begin(entry));
}

bool EndLine(Job& job, const Outcome& outcome, const LineJob* brought) {
  return !job.record.IsOpen() || Told(job, job.record.End(ResultWord(outcome), brought));
}

}  // namespace pyxis::job
