#include "options/smart_option.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <memory>

#include "shell/ground/app_state.h"

namespace pyxis {

namespace {

std::unique_ptr<SmartOptionBuffer> theBuffer;
std::array<std::int32_t, kOptionSlots> theChoices{};

// A mask without bits shifts everything out of a 16-bit word.
constexpr int kMaxShift = 17;

}  // namespace

SmartOptionBuffer* TheSmartOptionBuffer() { return theBuffer.get(); }

void AllocateSmartOptionBuffer() { theBuffer = std::make_unique<SmartOptionBuffer>(); }

void FreeSmartOptionBuffer() { theBuffer.reset(); }

std::array<std::int32_t, kOptionSlots>& OptionChoices() { return theChoices; }

void ResetSmartOption() {
  theBuffer.reset();
  theChoices = {};
}

std::span<SmartOptionRow> CurrentRows() {
  if (theBuffer == nullptr) return {};
  const auto end = std::find_if(theBuffer->begin(), theBuffer->end() - 1,
                                [](const SmartOptionRow& row) { return row.Label[0] == '\0'; });
  return {theBuffer->begin(), end};
}

std::string_view LabelOf(const SmartOptionRow& row) { return {row.Label, row.LabelLength}; }

std::vector<std::string> AlternativesOf(const SmartOptionRow& row) {
  const std::string_view items(row.Items, strnlen(row.Items, sizeof row.Items));
  std::vector<std::string> alternatives;
  std::size_t at = 0;
  while ((at = items.find_first_not_of(kItemSeparator, at)) != std::string_view::npos) {
    const std::size_t end = std::min(items.find(kItemSeparator, at), items.size());
    alternatives.emplace_back(items.substr(at, end - at));
    at = end;
  }
  return alternatives;
}

int UnpackSystemConfig(std::int32_t word) {
  if (word == kNoSystemConfig) return 0;
  const auto& masks = TheAppState().selection.OptionMasks;
  for (std::size_t i = 0; i < kOptionSlots; ++i) {
    const std::uint32_t mask = masks[i];
    const int shift = std::min(std::countr_zero(mask), kMaxShift);
    theChoices[i] = static_cast<std::int32_t>(((static_cast<std::uint32_t>(word) & mask) ^ mask) >> shift);
  }
  return 1;
}

}  // namespace pyxis
