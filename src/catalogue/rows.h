// The rows of IC selection, made of the records: thirteen lists, one a series and model.
#pragma once

#include "catalogue/chip_catalogue.h"
#include "catalogue/ics.h"

namespace pyxis {

struct SeriesList {
  const char* caption;
  Model model;
  Series series;
  bool takesSerialAndMass;  // Display Serial Number and Mass Production Mode are offered when the series is chosen
};

// In the order of the list index: the lists of the KM48, then those of the KM49.
// clang-format off
inline constexpr auto kSeriesLists = std::to_array<SeriesList>({
    {.caption = "MCU: 4 Bit QV41 series", .model = Model::Km48, .series = Series::Qv41,    .takesSerialAndMass = false},
    {.caption = "MCU: 4 Bit QV42 series", .model = Model::Km48, .series = Series::Qv42,    .takesSerialAndMass = false},
    {.caption = "MCU: 8 Bit QV81 Series", .model = Model::Km48, .series = Series::Qv81,    .takesSerialAndMass = true},
    {.caption = "MCU: 8 Bit QV82 Series", .model = Model::Km48, .series = Series::Qv82,    .takesSerialAndMass = true},
    {.caption = "MCU: 8 Bit QV83 Series", .model = Model::Km48, .series = Series::Qv83,    .takesSerialAndMass = true},
    {.caption = "MCU: 8 Bit QV85 Series", .model = Model::Km48, .series = Series::Qv85,    .takesSerialAndMass = true},
    {.caption = "USB: Low Speed Series",  .model = Model::Km48, .series = Series::UsbLow,  .takesSerialAndMass = true},
    {.caption = "USB: Full Speed Series", .model = Model::Km48, .series = Series::UsbFull, .takesSerialAndMass = true},
    {.caption = "MCU: 8 Bit QV81 Series", .model = Model::Km49, .series = Series::Qv81,    .takesSerialAndMass = true},
    {.caption = "MCU: 8 Bit QV82 Series", .model = Model::Km49, .series = Series::Qv82,    .takesSerialAndMass = true},
    {.caption = "MCU: 8 Bit QV83 Series", .model = Model::Km49, .series = Series::Qv83,    .takesSerialAndMass = true},
    {.caption = "MCU: 8 Bit QV85 Series", .model = Model::Km49, .series = Series::Qv85,    .takesSerialAndMass = true},
    {.caption = "USB: Full Speed Series", .model = Model::Km49, .series = Series::UsbFull, .takesSerialAndMass = true},
});
// clang-format on

// Those of the KM48 first, as chip_catalogue.h counts them.
constexpr bool ListsStandInOrder() {
  for (int i = 0; i < kListCount; ++i)
    if ((kSeriesLists[static_cast<std::size_t>(i)].model == Model::Km49) != (i >= kFirstKm49List)) return false;
  return kSeriesLists.size() == kListCount;
}
static_assert(ListsStandInOrder());

constexpr const Labels& LabelsOf(const Ic& ic, Model model) { return model == Model::Km49 ? ic.km49 : ic.km48; }

constexpr std::size_t CountRows(Ics ics, const SeriesList& list) {
  std::size_t count = 0;
  for (const Ic* ic : ics)
    if (ic->series == list.series)
      for (const Label& label : LabelsOf(*ic, list.model)) count += label.IsThere() ? 1 : 0;
  return count;
}

constexpr std::size_t CountRows(Ics ics) {
  std::size_t count = 0;
  for (const SeriesList& list : kSeriesLists) count += CountRows(ics, list);
  return count;
}

constexpr std::size_t CountLabels(Ics ics) {
  std::size_t count = 0;
  for (const Ic* ic : ics)
    for (const Labels* labels : {&ic->km48, &ic->km49})
      for (const Label& label : *labels) count += label.IsThere() ? 1 : 0;
  return count;
}
static_assert(CountRows(kIcs) == CountLabels(kIcs), "a label of a series that the model has no list of");

constexpr ChipEntry MakeEntry(const Ic& ic, const Label& label, Model model) {
  const bool km49 = model == Model::Km49;
  return {.ChipName = ic.ChipName,
          .TypeLabel = label.text,
          .FileExtension = ic.FileExtension,
          .ChipCode = ic.ChipCode,
          .HasOptionDialog = ic.options != OptionChoice::None && ic.options != OptionChoice::Smart,
          .HasSmartOption = ic.options == OptionChoice::Smart,
          .AutoTicks = ic.ticks.autoRun,
          .BlankTicks = ic.ticks.blank,
          .ProgramTicks = ic.ticks.program,
          .VerifyTicks = ic.ticks.verify,
          .OptionMasks = km49 ? ic.masks.km49 : ic.masks.km48,
          .ReadSizeBytes = km49 ? ic.ReadSizeBytes.km49 : ic.ReadSizeBytes.km48,
          .ReadSwapBytes = ic.ReadSwapBytes,
          .HasIspProgram = ic.isp != Isp::None,
          .ic = &ic};
}

// The rows of a list from `first` on: those that stand in the order of the records, then the others behind theirs.
constexpr void FillList(std::span<ChipEntry> rows, Ics ics, const SeriesList& list) {
  std::size_t count = 0;
  for (const bool elsewhere : {false, true})
    for (const Ic* ic : ics) {
      if (ic->series != list.series) continue;
      for (const Label& label : LabelsOf(*ic, list.model)) {
        if (!label.IsThere() || label.StandsElsewhere() != elsewhere) continue;
        std::size_t at = count++;
        for (; elsewhere && !SameText(rows[at - 1].TypeLabel, label.behind); --at) rows[at] = rows[at - 1];
        rows[at] = MakeEntry(*ic, label, list.model);
      }
    }
}

template <std::size_t Count>
constexpr std::array<ChipEntry, Count> MakeCatalogue(Ics ics) {
  std::array<ChipEntry, Count> rows{};
  std::size_t at = 0;
  for (const SeriesList& list : kSeriesLists) {
    const std::size_t count = CountRows(ics, list);
    FillList(std::span(rows).subspan(at, count), ics, list);
    at += count;
  }
  return rows;
}

}  // namespace pyxis
