// The stand-in writer as a process.
#include <CLI/CLI.hpp>
#include <csignal>
#include <cstdio>
#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "shell/ground/app_state.h"
#include "standin/local_server.h"
#include "standin/redirection.h"
#include "standin/socket_path.h"

namespace {

volatile std::sig_atomic_t stopAsked = 0;

void Stop(int) { stopAsked = 1; }

constexpr int kServeMs = 200;

}  // namespace

int main(int argc, char** argv) {
  using namespace pyxis;
  using namespace pyxis::standin;
  std::string socket = SocketPath();
  std::string state;
  Model model = Model::Km48;
  std::string hw = "1.1";
  std::string identity;
  ChipState chip = ChipState::Blank;
  bool log = false;
  bool freshChips = false;
  std::uint16_t port = 0;
  int failTask = 0;
  long damageByte = -1;
  bool noVerdict = false;
  std::vector<std::tuple<int, int, int>> measures;

  CLI::App app{"A stand-in for the writer, for work without the hardware"};
  app.set_version_flag("--version", "pyxiswriter " PYXIS_VERSION);
  app.add_option("--socket", socket, "local socket that programs reach it by")->capture_default_str();
  app.add_option("--usbredir", port, "TCP port of this machine for a virtual machine's USB redirection");
  app.add_option("--state", state, "file that keeps the job over a restart");
  app.add_option("--model", model)
      ->transform(CLI::CheckedTransformer(std::map<std::string, Model>{{"KM48", Model::Km48}, {"KM49", Model::Km49}}));
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
  app.add_option("--fail-task", failTask, "let the nth task fail");
  app.add_option("--damage-byte", damageByte, "damage this byte of each package read-back");
  app.add_flag("--no-verdict", noVerdict, "never give a verdict");
  app.add_option("--measure", measures, "a self-test value: the step, the place (0 to 5) and the value, three numbers");
  CLI11_PARSE(app, argc, argv);

  WriterModel writer(model, identity.empty() ? "PYX STANDALONE LOADER_V" + hw : identity);
  writer.chip.state = chip;
  if (failTask > 0) writer.faults.failTask = failTask;
  if (damageByte >= 0) writer.faults.damageAreaByte = static_cast<std::size_t>(damageByte);
  writer.freshChips = freshChips;
  writer.faults.noVerdict = noVerdict;
  for (const auto& [step, place, value] : measures) {
    if (step >= 0 && step <= 0xFF && place >= 0 && value >= 0 && value <= 0xFF &&
        writer.SetMeasure(static_cast<std::uint8_t>(step), static_cast<std::size_t>(place),
                          static_cast<std::uint8_t>(value)))
      continue;
    std::fprintf(stderr, "no such self-test value: %d %d %d\n", step, place, value);
    return 1;
  }
  if (!state.empty()) writer.Restore(state);  // a first start has none

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
  while (stopAsked == 0) {
    std::vector<pollfd> waits;
    server.AddWaits(waits);
    if (redirection) redirection->AddWaits(waits);
    if (poll(waits.data(), waits.size(), kServeMs) <= 0) continue;
    server.Serve(0);
    if (redirection) redirection->Serve();
  }
  bool good = true;
  if (!state.empty() && !writer.Save(state)) {
    std::fprintf(stderr, "can't write %s\n", state.c_str());
    good = false;
  }
  if (log)
    for (const std::string& violation : writer.Violations()) std::printf("%s\n", violation.c_str());
  return good ? 0 : 1;
}
