#include "soak/line.h"

#include "shell/menu_rules.h"

namespace pyxis::soak {

namespace {

constexpr std::uint32_t kClockStep = 25;  // ms a look, so that a wait takes few of them

// One of each way in which a serial can lie in a chip.
constexpr LineIc kIcs[] = {
    {.label = "QV8348", .limit = 0x3FC, .unit = Unit::Word, .menuRoad = true, .selectionRoad = true, .flash = false},
    {.label = "QV8301", .limit = 0x1000, .unit = Unit::Word, .menuRoad = true, .selectionRoad = true, .flash = true},
    {.label = "QV8106", .limit = 0x1FFE, .unit = Unit::Byte, .menuRoad = false, .selectionRoad = true, .flash = true},
    {.label = "QV4107",
     .limit = 0x1000,
     .unit = Unit::Packed,
     .menuRoad = true,
     .selectionRoad = false,
     .flash = false}};

}  // namespace

Line::Line(test::Transport transport, std::uint64_t seed, Totals& totals)
    : StandinBench(transport), transport_(transport), chance_(seed), totals_(totals) {
  clock.step = kClockStep;
  for (const LineIc& ic : kIcs) samples_[ic.label] = PutFolderFor(ic.label);
}

void Line::Run() {
  ++totals_.runs;
  story_.clear();
  ic_ = &kIcs[chance_.Below(std::size(kIcs))];
  switch (chance_.Below(5)) {
    case 0:
      RunWithoutSerials();
      break;
    case 1:
    case 2:
      if (ic_->menuRoad) {
        RunMenuRoad();
        break;
      }
      [[fallthrough]];
    default:
      ic_->selectionRoad ? RunSelectionRoad() : RunMenuRoad();
  }
  for (const std::string& text : writer.Violations()) throw Difference("breach of the protocol: " + text);
}

std::string Line::Story() const {
  std::string text = std::string(ic_->label) + (transport_ == test::Transport::Usb ? " over usb" : " over velmarapi");
  text += ", limit " + Text(limit_) + " with " + Text(produced_) + " produced; series of " + Text(series_.amount) +
          " from " + Hex(series_.first) + ", " + Text(series_.given) + " given, length " +
          Text(std::uint64_t{series_.length}) + " at " + Hex(series_.address) + ", direction " +
          Text(static_cast<std::uint64_t>(series_.direction));
  for (const std::string& event : story_) text += "\n  " + event;
  return text;
}

void Line::Expect(bool holds, const std::string& what) const {
  if (!holds) throw Difference(what);
}

}  // namespace pyxis::soak
