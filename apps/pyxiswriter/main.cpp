// The stand-in writer as a process.
#include <CLI/CLI.hpp>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "shell/ground/app_state.h"
#include "standin/local_client.h"
#include "standin/local_server.h"
#include "standin/redirection.h"
#include "standin/socket_path.h"
#include "system/broken_pipe.h"
#include "version/version.h"

namespace {

using namespace pyxis;
using namespace pyxis::standin;

volatile std::sig_atomic_t stopAsked = 0;

void Stop(int) { stopAsked = 1; }

constexpr int kServeMs = 200;

void AddFaults(CLI::App& app, Faults& faults) {
  for (const FaultName& fault : FaultNames()) {
    const std::string name = std::string("--") + fault.name;
    if (fault.takesNumber) {
      app.add_option_function<int>(
             name, [&](const int& number) { fault.set(faults, number); }, fault.what)
          ->check(CLI::NonNegativeNumber);
    } else {
      app.add_flag_callback(
          name, [&] { fault.set(faults, 0); }, fault.what);
    }
  }
}

// A file that is there, and yet no writer's memory that could be taken over.
bool IsSpoilt(WriterModel& writer, const std::string& path) {
  std::error_code error;
  return std::filesystem::status(path, error).type() != std::filesystem::file_type::not_found && !writer.Restore(path);
}

}  // namespace

int main(int argc, char** argv) {
  IgnoreBrokenPipes();
  std::string socket = SocketPath();
  std::string state;
  Model model = Model::Km48;
  std::string hw = "1.1";
  std::string identity;
  ChipState chip = ChipState::Blank;
  bool log = false;
  bool freshChips = false;
  std::uint16_t port = 0;
  Faults faults;
  std::string tell;
  std::vector<std::tuple<int, int, int>> measures;

  CLI::App app{"A stand-in for the writer, for work without the hardware"};
  app.set_version_flag("--version", std::string("pyxiswriter ") + pyxis::kVersion);
  app.add_option("--socket", socket, "local socket that programs reach it by")->capture_default_str();
  app.add_option("--usbredir", port, "TCP port of this machine for a virtual machine's USB redirection");
  app.add_option("--state", state, "file that keeps the job over a restart");
  app.add_option("--model", model)
      ->transform(CLI::CheckedTransformer(
          std::map<std::string, Model>{{pyxis::kNameKm48, Model::Km48}, {pyxis::kNameKm49, Model::Km49}}));
  app.add_option("--hw", hw, "hardware revision")->check(CLI::IsMember({"1.0", "1.1", "2.0"}));
  app.add_option("--identity", identity, "identity text, in the place of the revision's");
  app.add_option("--chip", chip, "what the socket holds")
      ->transform(CLI::CheckedTransformer(std::map<std::string, ChipState>{{"missing", ChipState::Missing},
                                                                           {"blank", ChipState::Blank},
                                                                           {"programmed", ChipState::Programmed},
                                                                           {"protected", ChipState::Protected},
                                                                           {"worn", ChipState::Worn}}));
  app.add_flag("--fresh-chips", freshChips, "put a blank chip in before each Auto and Program, as a handler does");
  app.add_flag("--log", log, "print breaches of the protocol at the end");
  app.add_option("--measure", measures, "a self-test value: the step, the place (0 to 5) and the value, three numbers");
  AddFaults(app, faults);
  app.add_option("--tell", tell,
                 "set a fault of the writer that runs already: \"stall\", \"fail-task 2\", \"no-fault\"");
  CLI11_PARSE(app, argc, argv);

  if (!tell.empty()) {
    if (LocalClient().Tell(socket, tell)) return 0;
    std::fprintf(stderr, "no fault \"%s\", or no writer on %s\n", tell.c_str(), socket.c_str());
    return 1;
  }
  WriterModel writer(model, identity.empty() ? "PYX STANDALONE LOADER_V" + hw : identity);
  writer.chip.state = chip;
  writer.freshChips = freshChips;
  writer.faults = faults;
  for (const auto& [step, place, value] : measures) {
    if (step >= 0 && step <= 0xFF && place >= 0 && value >= 0 && value <= 0xFF &&
        writer.SetMeasure(static_cast<std::uint8_t>(step), static_cast<std::size_t>(place),
                          static_cast<std::uint8_t>(value)))
      continue;
    std::fprintf(stderr, "no such self-test value: %d %d %d\n", step, place, value);
    return 1;
  }
  const bool spoilt = !state.empty() && IsSpoilt(writer, state);
  if (spoilt)
    std::fprintf(stderr, "can't take the job from %s: the file stays as it is, and nothing is kept\n", state.c_str());

  LocalServer server(writer, socket);
  if (!server.Listening()) {
    std::fprintf(stderr, "can't listen on %s\n", socket.c_str());
    return 1;
  }
  std::optional<RedirectionServer> redirection;
  if (port != 0) {
    redirection.emplace(writer, port);
    if (!redirection->Listening()) {
      std::fprintf(stderr, "can't listen on port %d\n", port);
      return 1;
    }
  }
  struct sigaction action {};
  action.sa_handler = Stop;
  sigaction(SIGINT, &action, nullptr);
  sigaction(SIGTERM, &action, nullptr);
  while (stopAsked == 0 && writer.Now() != Line::Gone) {
    std::vector<pollfd> waits;
    server.AddWaits(waits);
    if (redirection) redirection->AddWaits(waits);
    if (poll(waits.data(), waits.size(), kServeMs) <= 0) continue;
    server.Serve(0);
    if (redirection) redirection->Serve();
  }
  bool good = !spoilt;
  if (good && !state.empty() && !writer.Save(state)) {
    std::fprintf(stderr, "can't write %s\n", state.c_str());
    good = false;
  }
  if (log)
    for (const std::string& violation : writer.Violations()) std::printf("%s\n", violation.c_str());
  return good ? 0 : 1;
}
