#include "catalogue/chip_catalogue.h"

#include <algorithm>
#include <string_view>

#include "catalogue/rows.h"
#include "platform/files.h"
#include "platform/text.h"
#include "shell/ground/app_state.h"

namespace pyxis {

namespace {

constexpr std::size_t kRowCount = CountRows(kIcs);
constexpr std::array<ChipEntry, kRowCount> ChipCatalogue = MakeCatalogue<kRowCount>(kIcs);

constexpr auto MakeCaptions() {
  std::array<const char*, kListCount> captions{};
  for (std::size_t i = 0; i < captions.size(); ++i) captions[i] = kSeriesLists[i].caption;
  return captions;
}
constexpr auto kCaptions = MakeCaptions();

constexpr auto MakeStarts() {
  std::array<std::size_t, kListCount + 1> starts{};
  for (std::size_t i = 0; i < kSeriesLists.size(); ++i) starts[i + 1] = starts[i] + CountRows(kIcs, kSeriesLists[i]);
  return starts;
}
constexpr auto kStarts = MakeStarts();

}  // namespace

std::span<const ChipEntry> ChipList(int listIndex) {
  const auto list = static_cast<std::size_t>(listIndex);
  return std::span(ChipCatalogue).subspan(kStarts[list], kStarts[list + 1] - kStarts[list]);
}

const ChipEntry& Row(int seriesIndex, int typeIndex) {
  return ChipList(seriesIndex)[static_cast<std::size_t>(typeIndex)];
}

const ChipEntry* RowOfChip(std::string_view chipName) {
  for (int list = 0; list < kListCount; ++list)
    for (const ChipEntry& row : ChipList(list))
      if (row.ChipName == chipName) return &row;
  return nullptr;
}

std::span<const char* const> SeriesCaptions(Model model) {
  const std::span<const char* const> all(kCaptions);
  if (model == Model::Km48) return all.first(kFirstKm49List);
  if (model == Model::Km49) return all.subspan(kFirstKm49List);
  return {};
}

int ListIndex(Model model, int position) { return model == Model::Km49 ? position + kFirstKm49List : position; }

int FindChip(std::string_view label, int& seriesIndex, int& typeIndex) {
  for (int list = 0; list < kListCount; ++list) {
    const std::span<const ChipEntry> rows = ChipList(list);
    for (std::size_t i = 0; i < rows.size(); ++i) {
      const ChipEntry& row = rows[i];
      if (!EqualsNoCase(row.TypeLabel, label)) continue;
      seriesIndex = list;
      typeIndex = static_cast<int>(i);
      AppState& app = TheAppState();
      app.selection.AutoTicks = row.AutoTicks;
      app.selection.BlankTicks = row.BlankTicks;
      app.selection.ProgramTicks = row.ProgramTicks;
      app.selection.VerifyTicks = row.VerifyTicks;
      app.selection.ReadSizeBytes = row.ReadSizeBytes;
      app.selection.ReadSwapBytes = row.ReadSwapBytes;
      app.selection.OptionMasks = row.OptionMasks;
      return 1;
    }
  }
  return 0;
}

const Ic* IcOfName(std::string_view chipName) {
  const auto found = std::find_if(kIcs.begin(), kIcs.end(), [=](const Ic* ic) { return ic->ChipName == chipName; });
  return found == kIcs.end() ? nullptr : *found;
}

const Ic& IcOrUnknown(std::string_view chipName) {
  static constexpr Ic kUnknown = Unlisted({.ChipName = "",
                                           .ChipCode = kNoCode,
                                           .templateName = "",
                                           .comparison = kCompareHex,
                                           .protection = kHighByteProtection,
                                           .serial = kNoSerial,
                                           .menus = kAllEntries});
  const Ic* ic = IcOfName(chipName);
  return ic == nullptr ? kUnknown : *ic;
}

const Ic* IcOfCode(std::uint32_t chipCode) {
  const auto found = std::find_if(kIcs.begin(), kIcs.end(), [=](const Ic* ic) { return ic->ChipCode == chipCode; });
  return found == kIcs.end() || chipCode == kNoCode ? nullptr : *found;
}

std::span<const Ic* const> AllIcs() { return kIcs; }

bool SeriesTakesSerialAndMass(int listIndex) {
  return kSeriesLists[static_cast<std::size_t>(listIndex)].takesSerialAndMass;
}

bool StartsLikeAName(std::span<const std::uint8_t> block) {
  return block.size() >= 2 && block[0] == kNameStart[0] && block[1] == kNameStart[1];
}

std::string FirmwareFolder(Model model) {
  return TheAppState().program.AppDir + FirmwareFolderName(model) + kPathSeparator;
}

std::optional<Firmware> FirmwareFor(std::uint32_t chipCode, Model model) {
  const Ic* ic = IcOfCode(chipCode);
  if (ic == nullptr || ic->series == Series::None) return std::nullopt;
  return Firmware{FirmwareFolder(model) + ic->firmware.file, ic->firmware.code};
}

std::string FigurePath(std::string_view label, bool exhvIsp, bool isp) {
  const char* suffix = exhvIsp ? "ISP" : isp ? "ISP1" : "";
  return TheAppState().program.StartDirectory + kPathSeparator + "res" + kPathSeparator + std::string(label) + suffix +
         ".bmp";
}

}  // namespace pyxis
