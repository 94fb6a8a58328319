#include "shell/ground/verdict_line.h"

#include "platform/machine.h"
#include "platform/main_view.h"
#include "platform/operator.h"
#include "platform/text.h"
#include "shell/ground/main_controls.h"

namespace pyxis {

namespace {

VerdictLine& Line() { return TheMainControls().verdict; }

void LineChanged() { TheMachine().view->ControlsChanged(); }

}  // namespace

std::string VerdictLine::Counts() const {
  std::string text;
  if (ok + ng != 0) text = Printf("OK %u   NG %u", ok, ng);
  if (left) text += Printf("%sLeft %u", text.empty() ? "" : "   ", *left);
  return text;
}

void ClearVerdict() {
  Line() = {};
  LineChanged();
}

void SetChipsLeft(std::uint32_t count) {
  Line().left = count;
  LineChanged();
}

void BeginVerdict() {
  Line().words.clear();
  LineChanged();
}

void ShowVerdict(const std::string& words, bool good, bool takesOne) {
  VerdictLine& line = Line();
  line.words = words;
  line.good = good;
  ++(good ? line.ok : line.ng);
  if (good && takesOne && line.left && *line.left > 0) --*line.left;
  LineChanged();
  if (!good) TheMachine().op->Alarm();
}

}  // namespace pyxis
