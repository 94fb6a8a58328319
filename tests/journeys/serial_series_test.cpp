// Serial numbers from the dialog to the chip: what lies in each chip, read back and counted apart from the program.
#include "intake/package_files.h"
#include "platform/text.h"
#include "serial/sn_run.h"
#include "support/serial_entry.h"
#include "support/standin_bench.h"

namespace pyxis::test {
namespace {

using standin::ChipState;

Bytes Plus(Bytes number, unsigned carry) {
  for (std::size_t i = number.size(); i-- > 0; carry >>= 8) {
    carry += number[i];
    number[i] = static_cast<std::uint8_t>(carry);
  }
  return number;
}

std::string Digits(const Bytes& number) {
  std::string text;
  for (const std::uint8_t byte : number) text += Printf("%02X", byte);
  return text;
}

// How an IC counts addresses.
enum class Unit { Byte, HighFirstWord, LowFirstWord, PackedWord };

std::size_t OffsetOf(Unit unit, std::size_t address, std::size_t i) {
  if (unit == Unit::Byte) return address + i;
  if (unit == Unit::PackedWord) return 2 * (address + i / 2) + 1 - i % 2;
  return 2 * (address + i) + (unit == Unit::HighFirstWord ? 1 : 0);
}

// The data with a serial in it. MSB first in a chip means "Low Byte".
Bytes WithSerial(Bytes data, Unit unit, std::size_t address, Bytes serial, int direction) {
  if (direction == 1) std::reverse(serial.begin(), serial.end());
  for (std::size_t i = 0; i < serial.size(); ++i) data.at(OffsetOf(unit, address, i)) = serial[i];
  return data;
}

class SerialSeriesJourney : public StandinBench {
 protected:
  explicit SerialSeriesJourney(Transport transport = Transport::Usb) : StandinBench(transport) {}

  void Enter(CSnSetDlg& dialog, std::size_t address, const Bytes& first, unsigned amount, int direction) {
    ASSERT_TRUE(EnterSerial(
        dialog, {Printf("%zX", first.size()), Printf("%zX", address), Digits(first), Printf("%X", amount), direction}));
  }
  // The road through IC selection: Serial Number Set, and Load File after it.
  void EnterAndLoad(const std::string& sample, std::size_t address, const Bytes& first, unsigned amount,
                    int direction) {
    CSnSetDlg set(true, false, false);
    TheAppState().selection.SnMode = true;
    Enter(set, address, first, amount, direction);
    Load(sample);
    ASSERT_EQ(op.Heard(), Texts{"Loading Data Ok"});
    ASSERT_TRUE(SnProgressDlg()->visible);
  }
};

// Over a transport, by the menu's road or through IC selection.
class TwentyChips : public SerialSeriesJourney, public ::testing::WithParamInterface<std::tuple<Transport, bool>> {
 protected:
  TwentyChips() : SerialSeriesJourney(std::get<0>(GetParam())) {}

  // Twenty good chips, with a failure of another kind before every third.
  void Press(CSnProgramDlg& dialog, const Bytes& first, std::size_t address, int direction) {
    const Bytes data = Contents(kDataPackageName);
    unsigned failures = 0;
    for (unsigned good = 0; good < kChips; ++good) {
      if (good % 3 == 1) {
        writer.chip = standin::Chip{};
        if (failures % 3 == 0) writer.chip.state = ChipState::Missing;
        if (failures % 3 == 1) writer.chip.state = ChipState::Worn;
        if (failures % 3 == 2) writer.faults.failTask = 1;  // burnt, but the verdict is failure
        dialog.OnSnProgram();
        EXPECT_EQ(dialog.startText, Digits(Plus(first, good)));  // a failure takes no number
        ++failures;
      }
      writer.chip = standin::Chip{};
      dialog.OnSnProgram();
      ASSERT_EQ(writer.chip.burnt, WithSerial(data, Unit::HighFirstWord, address, Plus(first, good), direction));
    }
    EXPECT_EQ(op.Heard(), Texts{"Serial Number Program Complete"});
    EXPECT_FALSE(dialog.snProgramEnabled);
    EXPECT_EQ(dialog.okText + " " + dialog.ngText + " " + dialog.totalText,
              Printf("%X %X %X", kChips, failures, kChips + failures));
    // The writer has counted for itself: nothing more comes, whatever the host says.
    writer.chip = standin::Chip{};
    dialog.snProgramEnabled = true;
    dialog.OnSnProgram();
    EXPECT_TRUE(writer.chip.IsBlank());
    dialog.OnClose();
  }

  static constexpr unsigned kChips = 20;
};

TEST_P(TwentyChips, CarryTheirSerials) {
  LoadSample("QV8348");
  for (std::size_t length = 1; length <= 16; ++length) {
    for (const int direction : {0, 1}) {
      SCOPED_TRACE(Printf("length %zu, direction %d", length, direction));
      // One series ends at the very last number of its length, the other carries into the second byte.
      Bytes first(length, direction == 0 ? 0xFF : 0);
      first.back() = direction == 0 ? 0xEC : length == 1 ? 0 : 0xF6;
      const std::size_t address = 0x3FC - length;
      if (std::get<1>(GetParam())) {
        op.snSet = [&](CSnSetDlg& d) {
          Enter(d, address, first, kChips, direction);
          return DialogEnd::Ok;
        };
        op.snProgram = [&](CSnProgramDlg& d) {
          d.OnSnSet();
          Press(d, first, address, direction);
          return DialogEnd::Cancel;
        };
        OnSerialNumberProgram();
      } else {
        EnterAndLoad("samples/QV8348.hex", address, first, kChips, direction);
        Press(*SnProgressDlg(), first, address, direction);
      }
      if (HasFatalFailure()) return;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(BothRoads, TwentyChips, ::testing::Combine(kBothTransports, ::testing::Bool()));

// The highest places, by how far each IC's limit reaches.
TEST_F(SerialSeriesJourney, EachKindOfIcTakesASerialAtItsEnd) {
  // clang-format off
  for (const auto& [label, unit, limit, length] : Table<const char*, Unit, std::size_t, std::size_t>{
           {"QV8333", Unit::HighFirstWord, 0x3FB, 3}, {"QV8306", Unit::HighFirstWord, 0x400, 16},
           {"QV8336", Unit::HighFirstWord, 0x7FC, 1}, {"QV8303", Unit::HighFirstWord, 0x2000, 5},
           {"QV8121", Unit::Byte, 0xFFE, 2}, {"QV8101", Unit::Byte, 0x7FFE, 16}, {"QVL04", Unit::Byte, 0x8000, 7},
           {"QVL13", Unit::Byte, 0x4000, 1}, {"QVL01", Unit::HighFirstWord, 0x2000, 4},
           {"QVL03", Unit::HighFirstWord, 0x1FFF, 4}, {"QVL07", Unit::LowFirstWord, 0x3000, 6},
           {"QVL10", Unit::HighFirstWord, 0x1800, 2}, {"QV4107", Unit::PackedWord, 0x1000, 5},
           {"QV4107", Unit::PackedWord, 0x1000, 1}, {"QV4201", Unit::PackedWord, 0x1FFD + 4, 4},
           {"QV4204", Unit::PackedWord, 0x3FFD + 4, 4}}) {
    // clang-format on
    for (const int direction : {0, 1}) {
      SCOPED_TRACE(Printf("%s, direction %d", label, direction));
      const std::size_t address = limit - length;
      const Bytes serial = Plus(Bytes(length, 0x81), 0x2345);
      TheAppState().selection.SnMode = false;
      const std::string sample = PutFolderFor(label);
      Select(label);
      EnterAndLoad(sample, address, serial, 1, direction);
      if (HasFatalFailure()) return;
      writer.chip = standin::Chip{};
      SnProgressDlg()->OnSnProgram();
      EXPECT_EQ(op.Heard(), Texts{"Serial Number Program Complete"});
      EXPECT_EQ(writer.chip.burnt, WithSerial(Contents(kDataPackageName), unit, address, serial, direction));
      SnProgressDlg()->OnClose();
    }
  }
}

}  // namespace
}  // namespace pyxis::test
