// All ICs, and what must hold among them. Written out with loops: library calls are too many steps for some compilers'
// constant evaluation.
#pragma once

#include <span>

#include "catalogue/file_filters.h"
#include "catalogue/ics/qv41.h"
#include "catalogue/ics/qv42.h"
#include "catalogue/ics/qv81.h"
#include "catalogue/ics/qv82.h"
#include "catalogue/ics/qv830x.h"
#include "catalogue/ics/qv832x.h"
#include "catalogue/ics/qv835x.h"
#include "catalogue/ics/qv85.h"
#include "catalogue/ics/usb.h"
#include "shell/ground/app_state.h"

namespace pyxis {

using Ics = std::span<const Ic* const>;

// The order of the Type lists: one list may take its records from several groups.
inline constexpr std::span<const Ic> kIcGroups[] = {kQv41Ics,   kQv42Ics,   kQv81Ics, kQv82Ics, kQv832xIcs,
                                                    kQv835xIcs, kQv830xIcs, kQv85Ics, kUsbIcs};

constexpr std::size_t CountIcs() {
  std::size_t count = 0;
  for (const std::span<const Ic> group : kIcGroups) count += group.size();
  return count;
}

constexpr std::array<const Ic*, CountIcs()> MakeIcs() {
  std::array<const Ic*, CountIcs()> ics{};
  std::size_t at = 0;
  for (const std::span<const Ic> group : kIcGroups)
    for (const Ic& ic : group) ics[at++] = &ic;
  return ics;
}
inline constexpr std::array<const Ic*, CountIcs()> kIcs = MakeIcs();

// All names start with it; a writer without a job has something else there.
inline constexpr char kNameStart[] = "QV";

constexpr bool SameText(const char* a, const char* b) {
  while (*a != '\0' && *a == *b) ++a, ++b;
  return *a == *b;
}

constexpr bool NamesAndCodesAreUnique(Ics ics) {
  for (std::size_t i = 0; i < ics.size(); ++i)
    for (std::size_t k = i + 1; k < ics.size(); ++k) {
      if (SameText(ics[i]->ChipName, ics[k]->ChipName)) return false;
      if (ics[i]->ChipCode == ics[k]->ChipCode && ics[i]->ChipCode != kNoCode) return false;
    }
  return true;
}

constexpr bool NamesStartAlike(Ics ics) {
  for (const Ic* ic : ics)
    if (ic->ChipName[0] != kNameStart[0] || ic->ChipName[1] != kNameStart[1]) return false;
  return true;
}

constexpr bool TellsPins(const char* label) {
  while (*label != '\0' && *label != '_') ++label;
  return *label == '_' && label[1] > '0' && label[1] <= '9';
}

// A label is all of the IC's name, or the name, "_" and pin counts; so it has one record.
constexpr bool BelongsTo(const char* label, const char* name) {
  while (*name != '\0' && *label == *name) ++label, ++name;
  return *name == '\0' && (*label == '\0' || TellsPins(label));
}

constexpr bool LabelsAreTheIcs(const Ic& ic, const Labels& labels) {
  for (const Label& label : labels)
    if (label.IsThere() && !BelongsTo(label.text, ic.ChipName)) return false;
  return true;
}

// Every label of the KM49 does, or the record alone.
constexpr bool PinsAreTold(const Ic& ic) {
  if (!ic.km49[0].IsThere()) return ic.pins > 0;
  for (const Label& label : ic.km49)
    if (label.IsThere() && !TellsPins(label.text)) return false;
  return ic.pins == kInLabel;
}

constexpr bool IsFileType(const char* extension) {
  for (const FileType& known : kFileTypes)
    if (SameText(extension, known.extension)) return true;
  return false;
}

// A bit of the block; a full panel's has mode and clock above it. In the configuration word it is the first option that
// Smart Option shows, when it shows any.
constexpr bool IsSound(const Protection& place, OptionChoice options, const Masks& masks) {
  const int bits = place.panel == PanelKind::Full ? 3 : 1;
  if (place.byte >= kInfoBlockSize || place.bit < 0 || place.bit + bits > 8) return false;
  if ((place.panel == PanelKind::Full) != (options == OptionChoice::AllBits)) return false;
  const bool chosen = options == OptionChoice::UnprotectAlone || options == OptionChoice::UnprotectBit;
  if (chosen && place.panel != PanelKind::ProtectionOnly) return false;
  return masks[0] == 0 || (place.inConfigWord && masks[0] == 1U << (place.bit + 8));
}

// The name fits the block's field, or no job would be the IC's.
constexpr bool FitsTheBlock(const char* name) {
  std::size_t length = 0;
  while (name[length] != '\0') ++length;
  return length <= Field::ChipNameField.width;
}

// What holds of each IC that is in the catalogue; any other one has no row and no image.
constexpr bool IsListed(const Ic& ic) { return ic.series != Series::None; }
constexpr bool HasRows(const Ic& ic) {
  const bool row = ic.km48[0].IsThere() || ic.km49[0].IsThere();
  return row == IsListed(ic) && LabelsAreTheIcs(ic, ic.km48) && LabelsAreTheIcs(ic, ic.km49);
}
constexpr bool TellsItsPins(const Ic& ic) { return !IsListed(ic) || PinsAreTold(ic); }
constexpr bool CanBeALoad(const Ic& ic) {
  if (!IsListed(ic)) return ic.firmware.file == nullptr;
  return ic.ChipCode != kNoCode && FitsTheBlock(ic.ChipName) && ic.firmware.file != nullptr &&
         IsFileType(ic.FileExtension);
}
constexpr bool CanBeRead(const Ic& ic) {
  const Ticks& t = ic.ticks;
  return !IsListed(ic) || (ic.ReadSizeBytes.km48 != 0 && ic.ReadSizeBytes.km49 != 0 && t.autoRun != 0 && t.blank != 0 &&
                           t.program != 0 && t.verify != 0);
}
constexpr bool ProtectsSomewhere(const Ic& ic) {
  return !IsListed(ic) ||
         (IsSound(ic.protection, ic.options, ic.masks.km48) && IsSound(ic.protection, ic.options, ic.masks.km49));
}
constexpr bool MasksAreShown(const Ic& ic) {
  return ic.options == OptionChoice::Smart || (ic.masks.km48[0] == 0 && ic.masks.km49[0] == 0);
}
constexpr bool IsWhole(const Ic& ic) {
  return HasRows(ic) && TellsItsPins(ic) && CanBeALoad(ic) && CanBeRead(ic) && ProtectsSomewhere(ic) &&
         MasksAreShown(ic);
}

constexpr bool Each(Ics ics, bool (*holds)(const Ic&)) {
  for (const Ic* ic : ics)
    if (!holds(*ic)) return false;
  return true;
}

static_assert(NamesAndCodesAreUnique(kIcs), "two ICs of one name or one ChipCode");
static_assert(NamesStartAlike(kIcs), "an IC's name doesn't start as all do");
static_assert(Each(kIcs, HasRows), "an IC with a label that isn't its own, or a listed IC without a row");
static_assert(Each(kIcs, TellsItsPins),
              "an IC's pins are told neither by its KM49 labels nor by its record, or by both");
static_assert(Each(kIcs, CanBeALoad), "an IC without a code, an image or a known file type, or with too long a name");
static_assert(Each(kIcs, CanBeRead), "an IC with a read size or a divisor of the bar that is 0");
static_assert(Each(kIcs, ProtectsSomewhere), "a protection that lies nowhere, or doesn't fit the options or the masks");
static_assert(Each(kIcs, MasksAreShown), "masks of an IC without Smart Option");

}  // namespace pyxis
