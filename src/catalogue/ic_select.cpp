#include "catalogue/ic_select.h"

#include <charconv>
#include <limits>
#include <optional>
#include <string_view>

#include "catalogue/chip_catalogue.h"
#include "platform/machine.h"
#include "platform/operator.h"
#include "platform/text.h"
#include "shell/ground/app_state.h"
#include "shell/ground/messages.h"

namespace pyxis {

namespace {

void Follow(CIcSelectDlg::CheckBox& box, BoxRule rule) {
  if (rule != BoxRule::Leave) box.enabled = rule == BoxRule::Enable;
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
  model = TheAppState().writer.WriterModel;
  const auto captions = SeriesCaptions(model);
  if (captions.empty()) {
    TheMachine().op->Tell(kPowerOnTheWriter, kMessageCaption, MessageIcon::Stop);
    return false;
  }
  seriesList.assign(captions.begin(), captions.end());
  OnSeriesChange(0);
  OnTypeChange(0);
  return true;
}

void CIcSelectDlg::OnSeriesChange(int position) {
  seriesPosition = position;
  seriesIndex = ListIndex(model, position);
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
  if (SeriesTakesSerialAndMass(seriesIndex)) {
    displaySerial.enabled = massProduction.enabled = true;
  } else {
    ClearAndDisable(displaySerial);
    ClearAndDisable(massProduction);
  }
  TakeControls();
}

void CIcSelectDlg::OnTypeChange(int position) {
  typeIndex = typePosition = position;
  const ChipEntry& row = Row(seriesIndex, typeIndex);
  chipName = row.ChipName;
  const SelectionBoxes& boxes = row.ic->boxes;
  Follow(displaySerial, boxes.displaySerial);
  Follow(massProduction, boxes.massProduction);
  Follow(productionLimit, boxes.productionLimit);
  if (row.HasIspProgram) {
    exhvIsp.enabled = true;
    isp.enabled = row.ic->isp == Isp::ExhvAndIsp;
  } else {
    ClearAndDisable(exhvIsp);
    ClearAndDisable(isp);
  }
  TakeControls();
}

bool CIcSelectDlg::OnTypedName(std::string_view characters, bool anew) {
  if (anew || !beforeName_) {
    typed_.clear();
    beforeName_.reset();
    beforeName_ = std::make_shared<const CIcSelectDlg>(*this);
  }
  const auto before = beforeName_;
  const std::string typed = typed_.append(characters);
  *this = *before;
  const bool found = FindTyped(typed);
  beforeName_ = before;  // the steps of a click have ended it
  typed_ = typed;
  if (!found) Changed();
  return found;
}

bool CIcSelectDlg::FindTyped(std::string_view typed) {
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
    const auto rows = ChipList(ListIndex(model, series));
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
  beforeName_.reset();
  displaySerialValue = displaySerial.checked;
  exhvIspValue = exhvIsp.checked;
  ispValue = isp.checked;
  massProductionValue = massProduction.checked;
  productionLimitValue = productionLimit.checked;
  Changed();
}

void CIcSelectDlg::OnDisplaySerial(bool checked) {
  displaySerial.checked = checked;
  TakeControls();
}

void CIcSelectDlg::OnMassProduction(bool checked) {
  massProduction.checked = checked;
  TakeControls();
}

void CIcSelectDlg::OnProductionLimit(bool checked) {
  productionLimit.checked = checked;
  limitEditEnabled = checked;
  TakeControls();
}

void CIcSelectDlg::OnExhvIsp(bool checked) {
  exhvIsp.checked = checked;
  isp.enabled = !checked && Row(seriesIndex, typeIndex).ic->isp == Isp::ExhvAndIsp;
  TakeControls();
}

void CIcSelectDlg::OnIsp(bool checked) {
  isp.checked = checked;
  exhvIsp.enabled = !checked;
  TakeControls();
}

bool CIcSelectDlg::OnLimitText(const std::string& text) {
  beforeName_.reset();
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
  TheMachine().op->Tell(
      limit ? Printf("Please enter an integer between 1 and %d.", kLargestLimit) : "Please enter an integer.",
      kPlainCaption, MessageIcon::Warning);
  return false;
}

bool CIcSelectDlg::OnOk() { return TakeLimit(); }

}  // namespace pyxis
