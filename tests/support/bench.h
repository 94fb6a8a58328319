// The fixture that most tests start from: scripted seams, all process-wide records at their start values, and an empty
// program folder of its own that is AppDir. Brings along the records that it resets.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <tuple>
#include <vector>

#include "platform/machine.h"
#include "shell/ground/app_state.h"
#include "shell/ground/main_controls.h"
#include "support/scripted.h"

namespace pyxis::test {

using Bytes = std::vector<std::uint8_t>;
using Texts = std::vector<std::string>;
inline Bytes operator+(Bytes a, const Bytes& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}
inline Bytes Part(const Bytes& from, std::size_t at, std::size_t count) {
  return {from.data() + at, from.data() + at + count};
}
// The rows of a test.
template <typename... Columns>
using Table = std::vector<std::tuple<Columns...>>;

// Fields that belong together, for one comparison: EXPECT_EQ(All(view.Offset, view.Nibble), All(3, 1)).
template <typename... Fields>
auto All(Fields... fields) {
  return std::tuple(fields...);
}

class Bench : public ::testing::Test {
 protected:
  Bench();
  ~Bench() override;

  std::string Path(const std::string& name) const { return (folder / name).string(); }
  void Write(const std::string& name, std::span<const std::uint8_t> bytes) const;
  void WriteText(const std::string& name, const std::string& text) const {
    Write(name, Bytes(text.begin(), text.end()));
  }
  Bytes Contents(const std::string& name) const;

  std::filesystem::path folder;
  ScriptedOperator op;
  FakeClock clock;
  MapProfile profile;
  FixedLanguage language;
};

}  // namespace pyxis::test
