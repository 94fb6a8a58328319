// The line's record as the commands keep it.
#include <CLI/CLI.hpp>
#include <chrono>
#include <cstdio>
#include <ctime>

#include "intake/package_files.h"
#include "job.h"
#include "platform/byte_order.h"
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

// The block's stamp is local time and tells no zone. The milliseconds share their place with the model.
std::string ConversionTime(const std::uint8_t* stamp) {
  const auto field = [stamp](int index) { return static_cast<unsigned>(LoadLe16(stamp + 2 * index)); };
  if (field(1) < 1 || field(1) > 12) return "";
  return Printf("%04u-%02u-%02uT%02u:%02u:%02u", field(0), field(1), field(3), field(4), field(5), field(6));
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
  LineJob job;
  if (TheAppState().selection.ChipNameText.empty()) return job;
  job.ic = ChipNameOf(block);
  if (SerialRoadOf(block) == kSerialByMenu) return job;
  job.checksum = Printf("%04X", FieldWord(block, Field::ImageChecksum));
  job.converted = ConversionTime(&block[Field::DownloadTime.offset]);
  return job;
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
