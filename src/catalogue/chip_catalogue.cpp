#include "catalogue/chip_catalogue.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "catalogue/ics.h"
#include "catalogue/lists.h"
#include "platform/files.h"
#include "platform/text.h"
#include "shell/ground/app_state.h"

namespace pyxis {

namespace {

struct ListEntry {
  const char* caption;
  std::span<const ListRow> rows;
};

constexpr std::array<ListEntry, kListCount> kLists{{
    {"MCU: 4 Bit QV41 series", kList0},
    {"MCU: 4 Bit QV42 series", kList1},
    {"MCU: 8 Bit QV81 Series", kList2},
    {"MCU: 8 Bit QV82 Series", kList3},
    {"MCU: 8 Bit QV83 Series", kList4},
    {"MCU: 8 Bit QV85 Series", kList5},
    {"USB: Low Speed Series", kList6},
    {"USB: Full Speed Series", kList7},
    {"MCU: 8 Bit QV81 Series", kList8},
    {"MCU: 8 Bit QV82 Series", kList9},
    {"MCU: 8 Bit QV83 Series", kList10},
    {"MCU: 8 Bit QV85 Series", kList11},
    {"USB: Full Speed Series", kList12},
}};

constexpr std::size_t kRowCount = 224;

constexpr std::size_t CountRows() {
  std::size_t count = 0;
  for (const ListEntry& list : kLists) count += list.rows.size();
  return count;
}
static_assert(CountRows() == kRowCount);
static_assert(kIcs.size() == 108);

constexpr auto MakeCaptions() {
  std::array<const char*, kListCount> captions{};
  for (std::size_t i = 0; i < captions.size(); ++i) captions[i] = kLists[i].caption;
  return captions;
}
constexpr auto kCaptions = MakeCaptions();

// A label is all of the IC's name, or the name, "_" and pin counts. Written out, because library calls are too many
// steps for some compilers' constant evaluation.
constexpr bool BelongsTo(const char* label, const char* name) {
  while (*name != '\0' && *label == *name) ++label, ++name;
  return *name == '\0' && (*label == '\0' || *label == '_');
}

constexpr const Ic& IcOf(const char* label) {
  for (const Ic& ic : kIcs)
    if (BelongsTo(label, ic.ChipName)) return ic;
  throw "a label without an IC";  // fails the constant evaluation below
}

constexpr ChipEntry MakeEntry(const ListRow& row) {
  const Ic& ic = IcOf(row.TypeLabel);
  return {ic.ChipName,
          row.TypeLabel,
          ic.FileExtension,
          ic.ChipCode,
          ic.HasOptionDialog,
          ic.HasSmartOption,
          ic.ticks.autoRun,
          ic.ticks.blank,
          ic.ticks.program,
          ic.ticks.verify,
          row.masks[0] != 0 ? row.masks : ic.masks,
          row.readSizeBytes != 0 ? row.readSizeBytes : ic.ReadSizeBytes,
          ic.ReadSwapBytes,
          ic.HasIspProgram};
}

constexpr auto MakeCatalogue() {
  std::array<ChipEntry, kRowCount> entries{};
  std::size_t at = 0;
  for (const ListEntry& list : kLists)
    for (const ListRow& row : list.rows) entries[at++] = MakeEntry(row);
  return entries;
}

constexpr std::array<ChipEntry, kRowCount> ChipCatalogue = MakeCatalogue();

constexpr auto MakeStarts() {
  std::array<std::size_t, kListCount + 1> starts{};
  for (std::size_t i = 0; i < kLists.size(); ++i) starts[i + 1] = starts[i] + kLists[i].rows.size();
  return starts;
}
constexpr auto kStarts = MakeStarts();

constexpr bool TicksAreSet() {
  return std::all_of(ChipCatalogue.begin(), ChipCatalogue.end(), [](const ChipEntry& row) {
    return row.AutoTicks != 0 && row.BlankTicks != 0 && row.ProgramTicks != 0 && row.VerifyTicks != 0;
  });
}
static_assert(TicksAreSet());

const Ic* IcWithCode(std::uint32_t chipCode) {
  const auto found = std::find_if(kIcs.begin(), kIcs.end(), [=](const Ic& ic) { return ic.ChipCode == chipCode; });
  return found == kIcs.end() ? nullptr : &*found;
}

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

const char* FirmwareFileOf(std::uint32_t chipCode) {
  const Ic* ic = IcWithCode(chipCode);
  return ic == nullptr ? nullptr : ic->FirmwareFile;
}

std::string FirmwareFolder(Model model) {
  return TheAppState().program.AppDir + (model == Model::Km48 ? "firmware48" : "firmware49") + kPathSeparator;
}

std::optional<Firmware> FirmwareFor(std::uint32_t chipCode, Model model) {
  const Ic* ic = IcWithCode(chipCode);
  if (ic == nullptr) return std::nullopt;
  return Firmware{FirmwareFolder(model) + ic->FirmwareFile, ic->FirmwareCode};
}

std::string FigurePath(std::string_view label, bool exhvIsp, bool isp) {
  const char* suffix = exhvIsp ? "ISP" : isp ? "ISP1" : "";
  return TheAppState().program.StartDirectory + kPathSeparator + "res" + kPathSeparator + std::string(label) + suffix +
         ".bmp";
}

}  // namespace pyxis
