#include "catalogue/ic_select.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <optional>
#include <string_view>

#include "catalogue/chip_catalogue.h"
#include "platform/machine.h"
#include "platform/operator.h"
#include "platform/text.h"
#include "shell/ground/app_state.h"

namespace pyxis {

namespace {

constexpr std::int32_t kLargestLimit = 99999999;

// The lists of the series that have rules of their own.
constexpr int kQv41List = 0;
constexpr int kQv42List = 1;
constexpr int kQv81Lists[] = {2, 8};

// ICs that differ from their series.
constexpr std::string_view kQv81WithoutSerial[] = {"QV8101", "QV8102"};
constexpr std::string_view kQv42WithSerial[] = {"QV4201", "QV4204"};
constexpr std::string_view kUsbWithAllBoxes[] = {"QVL01", "QVL02", "QVL03", "QVL04", "QVL05",
                                                 "QVL06", "QVL09", "QVL10", "QVL11"};
constexpr std::string_view kUsbWithoutBoxes[] = {"QVL07"};
constexpr std::string_view kWithIspProgram[] = {"QVL09",  "QVL12",  "QV8101", "QV8102", "QV8103",
                                                "QV8104", "QV8105", "QV8106", "QV8108", "QV8111",
                                                "QV8113", "QV8115", "QV8117", "QV8119", "QV8120"};

template <typename List, typename Value>
bool Holds(const List& list, const Value& value) {
  return std::find(std::begin(list), std::end(list), value) != std::end(list);
}

void ClearAndDisable(CIcSelectDlg::CheckBox& box) { box = {.enabled = false, .checked = false}; }

// A whole number and nothing else; nothing for any other text. One that is too large is the largest.
std::optional<std::int32_t> ParseLimit(std::string_view text) {
  std::int32_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (end != text.data() + text.size()) return std::nullopt;
  if (error == std::errc::result_out_of_range) return std::numeric_limits<std::int32_t>::max();
  return error == std::errc() ? std::optional(value) : std::nullopt;
}

}  // namespace

bool CIcSelectDlg::OnInitDialog() {
  const auto captions = SeriesCaptions(TheAppState().writer.WriterModel);
  if (captions.empty()) {
    TheMachine().op->Tell("Please Power On The Writer", kMessageCaption, MessageIcon::Stop);
    return false;
  }
  seriesList.assign(captions.begin(), captions.end());
  displaySerial.enabled = false;
  massProduction.enabled = false;
  limitEditEnabled = false;
  OnSeriesChange(0);
  OnTypeChange(0);
  return true;
}

void CIcSelectDlg::OnSeriesChange(int position) {
  seriesPosition = position;
  seriesIndex = ListIndex(TheAppState().writer.WriterModel, position);
  typeIndex = typePosition = 0;
  typeList.clear();
  for (const ChipEntry& row : ChipList(seriesIndex)) typeList.emplace_back(row.TypeLabel);
  seriesCaption = seriesList[static_cast<std::size_t>(position)];

  const ChipEntry& row = Row(seriesIndex, typeIndex);
  if (row.HasIspProgram) {
    exhvIsp.enabled = true;
  } else {
    ClearAndDisable(exhvIsp);
    ClearAndDisable(isp);
  }
  chipName = row.ChipName;
  if (seriesIndex == kQv41List || seriesIndex == kQv42List) {
    ClearAndDisable(displaySerial);
    ClearAndDisable(massProduction);
  } else {
    displaySerial.enabled = massProduction.enabled = true;
  }
  TakeControls();
  Changed();
}

void CIcSelectDlg::OnTypeChange(int position) {
  typeIndex = typePosition = position;
  const ChipEntry& row = Row(seriesIndex, typeIndex);
  chipName = row.ChipName;
  if (Holds(kQv81Lists, seriesIndex)) displaySerial.enabled = !Holds(kQv81WithoutSerial, chipName);
  if (seriesIndex == kQv42List) displaySerial.enabled = Holds(kQv42WithSerial, chipName);
  if (Holds(kUsbWithAllBoxes, chipName))
    displaySerial.enabled = massProduction.enabled = productionLimit.enabled = true;
  if (Holds(kUsbWithoutBoxes, chipName))
    displaySerial.enabled = massProduction.enabled = productionLimit.enabled = false;
  if (row.HasIspProgram) {
    exhvIsp.enabled = true;
    isp.enabled = Holds(kWithIspProgram, chipName);
  } else {
    ClearAndDisable(exhvIsp);
    ClearAndDisable(isp);
  }
  TakeControls();
  Changed();
}

bool CIcSelectDlg::OnTypedName(std::string_view typed) {
  const auto begins = [typed](std::string_view label) {
    return label.size() >= typed.size() && EqualsNoCase(label.substr(0, typed.size()), typed);
  };
  if (begins(typeList[static_cast<std::size_t>(typePosition)])) {
    OnTypeChange(typePosition);
    return true;
  }
  const int count = static_cast<int>(seriesList.size());
  for (int i = 0; i < count; ++i) {
    const int series = (seriesPosition + i) % count;
    const auto rows = ChipList(ListIndex(TheAppState().writer.WriterModel, series));
    const auto found =
        std::find_if(rows.begin(), rows.end(), [&](const ChipEntry& row) { return begins(row.TypeLabel); });
    if (found == rows.end()) continue;
    if (series != seriesPosition) OnSeriesChange(series);
    OnTypeChange(static_cast<int>(found - rows.begin()));
    return true;
  }
  return false;
}

void CIcSelectDlg::TakeControls() {
  displaySerialValue = displaySerial.checked ? 1 : 0;
  exhvIspValue = exhvIsp.checked ? 1 : 0;
  ispValue = isp.checked ? 1 : 0;
  massProductionValue = massProduction.checked ? 1 : 0;
  productionLimitValue = productionLimit.checked ? 1 : 0;
}

void CIcSelectDlg::OnDisplaySerial(bool checked) {
  displaySerial.checked = checked;
  TakeControls();
  Changed();
}

void CIcSelectDlg::OnMassProduction(bool checked) {
  massProduction.checked = checked;
  TakeControls();
  Changed();
}

void CIcSelectDlg::OnProductionLimit(bool checked) {
  productionLimit.checked = checked;
  limitEditEnabled = checked;
  TakeControls();
  Changed();
}

void CIcSelectDlg::OnExhvIsp(bool checked) {
  exhvIsp.checked = checked;
  isp.enabled = !checked && Holds(kWithIspProgram, chipName);
  TakeControls();
  Changed();
}

void CIcSelectDlg::OnIsp(bool checked) {
  isp.checked = checked;
  exhvIsp.enabled = !checked;
  TakeControls();
  Changed();
}

bool CIcSelectDlg::OnLimitText(const std::string& text) {
  limitText = text;
  return TakeLimit();
}

bool CIcSelectDlg::TakeLimit() {
  const auto limit = ParseLimit(limitText);
  if (limit && *limit >= 1 && *limit <= kLargestLimit) {
    productionLimitCount = *limit;
    TakeControls();
    return true;
  }
  TheMachine().op->Tell(limit ? "Please enter an integer between 1 and 99999999." : "Please enter an integer.",
                        kPlainCaption, MessageIcon::Warning);
  return false;
}

bool CIcSelectDlg::OnOk() { return TakeLimit(); }

}  // namespace pyxis
