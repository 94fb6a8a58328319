#include "support/scenario.h"

#include <algorithm>
#include <functional>

#include "platform/byte_order.h"
#include "platform/text.h"
#include "support/scenario_bench.h"

namespace pyxis::test {

namespace {

ScenarioTexts TextsFor(const std::string& room) {
  ScenarioTexts all = ReadScenarios(room), common = ReadScenarios("common");
  all.insert(all.end(), common.begin(), common.end());
  return all;
}

}  // namespace

void ScenarioBench::Run(const Texts& lines) {
  for (std::size_t i = 0; i < lines.size();) {
    const std::string line = ForTransport(lines[i++]);
    Texts events;
    for (; i < lines.size() && lines[i].starts_with("  "); ++i) events.push_back(lines[i].substr(2));
    if (line.empty()) continue;
    SCOPED_TRACE(line);
    if (line[0] == '@') {
      Run(List(line));
    } else if (line.starts_with("run ")) {
      Start();
      record.watches = true;
      Do(line.substr(4));
      ExpectEvents(Events(events));
      record.watches = false;
    } else {
      Do(line);
    }
  }
}

void ScenarioBench::Do(const std::string& line) {
  const std::size_t at = line.find(" =");
  const Texts words = Words(line.substr(0, at));
  const auto order = orders_.find(words[0]);
  ASSERT_NE(order, orders_.end()) << words[0];
  order->second({{words.begin() + 1, words.end()}, at + 3 < line.size() ? line.substr(at + 3) : ""});
}

std::string ScenarioBench::ForTransport(const std::string& line) const {
  if (!line.starts_with("usb: ") && !line.starts_with("api: ")) return line;
  return line.starts_with("usb") == Usb() ? line.substr(5) : "";
}

// The lines of a list that is named in the data, with its words.
Texts ScenarioBench::List(const std::string& line) const {
  const Texts words = Words(line);
  for (const auto& [name, text] : texts_)
    if (name == words[0]) return Filled(text.lines, {words.begin() + 1, words.end()});
  ADD_FAILURE() << "no list " << words[0];
  return {};
}

Texts ScenarioBench::Events(const Texts& lines) const {
  Texts events;
  for (const std::string& several : lines)
    for (const std::string& one : Split(several, " ; ")) {
      const std::string line = ForTransport(one);
      const Texts words = Words(line);
      if (words.empty()) continue;
      events = events + (words[0] == "@poll"
                             ? Poll(Number(words[1]), Number(words[2]), words.size() > 3 ? Number(words[3]) : 1)
                         : words[0] == "@bar"     ? BarBehind(static_cast<std::size_t>(Number(WorkedOut(words[1]))))
                         : words[0] == "@block"   ? InfoBlock()
                         : words[0] == "@package" ? PackageFile(words[1], Held(words[2]))
                         : line[0] == '@'         ? Events(List(line))
                                                  : Texts{Unescaped(WorkedOut(line))});
    }
  return events;
}

// {size:file}, {be16:file,at}, {hex:file,at}, {shown:file} and {shown:file,count}, of its first bytes.
std::string ScenarioBench::WorkedOut(std::string line) const {
  for (std::size_t at = 0; (at = line.find('{')) != std::string::npos;) {
    const std::size_t end = line.find('}', at);
    const Texts words = Split(line.substr(at + 1, end - at - 1), ":"), values = Split(words[1], ",");
    const Bytes bytes = Held(values[0]);
    const std::size_t number = values.size() > 1 ? static_cast<std::size_t>(Number(values[1])) : bytes.size();
    line.replace(at, end + 1 - at,
                 words[0] == "size"   ? std::to_string(bytes.size())
                 : words[0] == "be16" ? Printf("%04X", LoadBe16(&bytes.at(number)))
                 : words[0] == "hex"  ? Printf("%x", LoadBe16(&bytes.at(number)))
                                      : Shown(Part(bytes, 0, number)));
  }
  return line;
}

Texts ScenariosOf(const std::string& room) {
  Texts names;
  for (const auto& [name, text] : ReadScenarios(room))
    if (name[0] != '@') names.push_back(name);
  return names;
}

void RunScenario(const std::string& room, const std::string& name) {
  const ScenarioTexts all = TextsFor(room);
  const auto& text = std::find_if(all.begin(), all.end(), [&](const auto& one) { return one.first == name; })->second;
  for (const Texts& row : text.rows)
    for (const Transport transport : {Transport::Usb, Transport::Vendor}) {
      SCOPED_TRACE(name + ": " + Joined(row, " | ") + (transport == Transport::Usb ? ", usb" : ", api"));
      ScenarioBench(transport, all).Run(Filled(text.lines, row));
    }
}

std::string TestName(const ::testing::TestParamInfo<std::string>& info) {
  std::string name = info.param;
  std::replace_if(
      name.begin(), name.end(), [](unsigned char letter) { return !std::isalnum(letter); }, '_');
  return name;
}

}  // namespace pyxis::test
