#include "options/smart_option_dlg.h"

#include <algorithm>

#include "options/smart_option.h"
#include "options/tin_file.h"
#include "platform/files.h"
#include "platform/machine.h"
#include "platform/operator.h"
#include "platform/text.h"
#include "shell/ground/app_state.h"

namespace pyxis {

namespace {

// Pixels, except where a unit is told: those are dialog units, eight to the window's base unit.
constexpr int kFirstTop = 2;
constexpr int kLeft = 2;
constexpr int kGap = 2;          // behind each cell
constexpr int kCaptionDrop = 4;  // a caption stands lower than its list
constexpr int kListExtra = 32;   // of a list over its widest alternative
constexpr int kRowExtra = 1;
constexpr int kWindowExtra = 32;
constexpr int kCaptionUnits = 8;
constexpr int kOpenListUnits = 60;
constexpr int kRowUnits = 12;

int Pixels(int units, int baseUnit) { return units * baseUnit / 8; }

std::string CaptionOf(const SmartOptionRow& row) { return std::string(LabelOf(row)) + " : "; }

int WidestOf(const std::vector<std::string>& alternatives, OptionWindow& window) {
  int widest = 0;
  for (const std::string& alternative : alternatives) widest = std::max(widest, window.TextWidth(alternative));
  return widest;
}

int RightOf(const OptionRect& cell) { return cell.x + cell.width + kGap; }

void WidenFor(int right, OptionWindow& window) {
  const OptionRect placement = window.Placement();
  if (right > placement.width) window.Place({0, 0, right + kWindowExtra, placement.height});
}

}  // namespace

void CSmartOptionDlg::OnInitDialog(OptionWindow& window) {
  const std::int32_t word = TheAppState().conversion.SystemConfigWord;
  UnpackSystemConfig(word);
  BuildOptionControls(window);
  window.SetTitle(Printf("Smart Option [ System config : %04X ]", static_cast<std::uint32_t>(word)));
}

void CSmartOptionDlg::BuildOptionControls(OptionWindow& window) {
  const int unit = window.VerticalBaseUnit();
  const auto options = CurrentRows();
  rows.clear();
  int top = kFirstTop;
  int right = 0;
  for (const SmartOptionRow& option : options) {
    Cells cells;
    cells.caption = {kLeft, top + kCaptionDrop, window.TextWidth(CaptionOf(option)), Pixels(kCaptionUnits, unit)};
    cells.list = {RightOf(cells.caption), top, WidestOf(AlternativesOf(option), window) + kListExtra,
                  Pixels(kOpenListUnits, unit)};
    cells.handle = window.CreateList(cells.list, std::string(LabelOf(option)));
    right = std::max({right, RightOf(cells.caption), RightOf(cells.list)});
    top += Pixels(kRowUnits, unit) + kRowExtra;
    rows.push_back(cells);
  }
  WidenFor(right, window);
  for (std::size_t i = 0; i < rows.size(); ++i)
    window.FillList(rows[i].handle, AlternativesOf(options[i]), std::max(OptionChoices()[i], 0));
}

void CSmartOptionDlg::PaintOptionLabels(OptionWindow& window) const {
  const auto options = CurrentRows();
  const int bottom = window.ClientHeight();
  for (std::size_t i = 0; i < std::min(rows.size(), options.size()); ++i) {
    const OptionRect& cell = rows[i].caption;
    if (cell.y > bottom) break;
    window.DrawLabel(cell.x, cell.y, CaptionOf(options[i]),
                     options[i].SwitchAddress < 0 ? OptionColor::Blue : OptionColor::Black);
  }
}

void OnSmartOption() {
  const AppState& app = TheAppState();
  ReadTinFile(app.program.AppDir + "tin" + kPathSeparator + app.selection.SelectedChip + ".tin");
  CSmartOptionDlg dialog;
  TheMachine().op->RunDialog(dialog);
}

}  // namespace pyxis
