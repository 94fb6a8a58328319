// What a run is expected to leave with the recorder.
#include "platform/text.h"
#include "support/scenario_bench.h"

namespace pyxis::test {

void ScenarioBench::Start() {
  SetProgressRange(0, 1);
  record.Take();
}

void ScenarioBench::ExpectEvents(const Texts& wanted) {
  record.LookAtControls("behind the run");
  const Texts got = record.Take();
  Texts lines = wanted;
  for (std::string& line : lines)
    if (line.starts_with("w ")) line.replace(0, 1, Usb() ? "usb" : "api");
  lines = Folded(lines);
  const auto same = [](const std::string& event, const std::string& line) {
    return line.ends_with('*') ? event.starts_with(line.substr(0, line.size() - 1)) : event == line;
  };
  std::size_t i = 0;
  for (std::size_t line = 0; line < lines.size() || i < got.size(); ++line, ++i) {
    if (line < lines.size() && lines[line] == "...") {
      if (++line == lines.size()) break;
      while (i < got.size() && !same(got[i], lines[line])) ++i;
    }
    if (i < got.size() && line < lines.size() && same(got[i], lines[line])) continue;
    ADD_FAILURE() << "event " << i << ": " << (i < got.size() ? got[i] : "none")
                  << "\n  wanted: " << (line < lines.size() ? lines[line] : "none")
                  << "\n  before: " << (i > 0 && i <= got.size() ? got[i - 1] : "");
    break;
  }
  Start();
}

Texts ScenarioBench::InfoBlock() {
  return {"w SET_MODE 47", "w SELECT_AREA 04 17", "w READ_AREA 512", "w SELECT_AREA 0C 07", "w SET_MODE 07"};
}

Texts ScenarioBench::PackageFile(const std::string& area, const Bytes& bytes) const {
  const Texts before = Usb() ? Texts{"bar 0-100 1"} : Texts{}, behind = BarBehind(bytes.size());
  return Texts{"w SET_MODE 47", "w SELECT_AREA " + area + " 17"} + before +
         Texts{bytes.empty() ? "w WRITE_AREA" : "w WRITE_AREA " + Shown(bytes)} + behind + before +
         Texts{Printf("w READ_AREA %zu", bytes.size())} + behind + Texts{"w SELECT_AREA 0C 07"};
}

// One step a chunk of 512 bytes, and one for the status block; the range ends at the whole chunks, or at 2 without one;
// no byte is no step.
Texts ScenarioBench::BarBehind(std::size_t bytes) const {
  const std::size_t whole = bytes / 512, top = whole == 0 ? 2 : whole;
  if (!Usb()) return {};
  return {Printf("bar 0-%zu", top) + (top == 1 || bytes == 0 ? " 1" : top == 2 ? " 1 2" : Printf(" 1..%zu", top))};
}

Texts ScenarioBench::Poll(int reads, int divisor, int shown) {
  Texts lines;
  for (int read = 1; read <= reads; ++read) {
    lines.push_back("w TASK_STATUS 1");
    if (read / divisor == shown) continue;
    shown = read / divisor;
    lines.push_back(shown == 0 ? "bar off" : Printf("bar %d", shown));
  }
  return lines;
}

}  // namespace pyxis::test
