// The self-test of the stand-in writer: a set-up in four values, then steps with a measurement each.
#include "link/writer_commands.h"
#include "platform/byte_order.h"
#include "platform/text.h"
#include "standin/writer_model.h"

namespace pyxis::standin {

bool WriterModel::SetMeasure(std::uint8_t step, std::size_t place, std::uint8_t value) {
  const auto sound = SoundMeasurement(identity, step);
  if (!sound || place >= sound->size()) return false;
  measures.try_emplace(step, *sound).first->second[place] = value;
  return true;
}

void WriterModel::TestSet(std::span<const std::uint8_t> data, Door door) {
  if (mode_ != mode::kArea) return Violate("self-test set-up outside mode 71");
  const std::uint16_t value = door == Door::Frames ? LoadLe16(data.data()) : LoadBe16(data.data());
  if (value == kTestSetUp.front()) testSets_ = 0;
  if (testSets_ == kTestSetUp.size() || value != kTestSetUp[testSets_])
    return Violate(Printf("self-test value %04X out of its order", value));
  ++testSets_;
  testStep_.reset();
}

void WriterModel::TestSelect(std::uint8_t step) {
  if (mode_ != mode::kArea) return Violate("self-test step outside mode 71");
  if (testSets_ != kTestSetUp.size()) return Violate("self-test step without its set-up");
  if (!SoundMeasurement(identity, step)) return Violate(Printf("unknown self-test step %d", step));
  testStep_ = step;
}

Measurement WriterModel::Measured() {
  if (!testStep_) {
    Violate("a measurement read without a self-test step");
    return {};
  }
  const auto set = measures.find(*testStep_);
  return set != measures.end() ? set->second : SoundMeasurement(identity, *testStep_).value();
}

}  // namespace pyxis::standin
