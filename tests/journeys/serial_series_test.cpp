// Serial numbers from the dialog to the chip: what lies in each chip, read back and counted apart from the program.
#include "catalogue/chip_catalogue.h"
#include "intake/load_file.h"
#include "intake/package_files.h"
#include "platform/text.h"
#include "pyxisfolder/folder.h"
#include "serial/sn_run.h"
#include "serial/sn_set.h"
#include "shell/app_state.h"
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

// The data with a serial in it. MSB first in a chip means "Low Byte".
Bytes WithSerial(Bytes data, Unit unit, std::size_t address, Bytes serial, int direction) {
  if (direction == 1) serial = Bytes(serial.rbegin(), serial.rend());
  for (std::size_t i = 0; i < serial.size(); ++i) {
    switch (unit) {
      case Unit::Byte:
        data.at(address + i) = serial[i];
        break;
      case Unit::HighFirstWord:
        data.at(2 * (address + i) + 1) = serial[i];
        break;
      case Unit::LowFirstWord:
        data.at(2 * (address + i)) = serial[i];
        break;
      case Unit::PackedWord:
        data.at(2 * (address + i / 2) + 1 - i % 2) = serial[i];
        break;
    }
  }
  return data;
}

struct Place {
  Transport transport;
  bool menuRoad;
};

class SerialSeriesJourney : public StandinBench {
 protected:
  explicit SerialSeriesJourney(Transport transport = Transport::Usb, int model = 1) : StandinBench(transport, model) {}

  void Enter(CSnSetDlg& dialog, std::size_t address, const Bytes& first, unsigned amount, int direction) {
    dialog.OnLengthChange(Printf("%zX", first.size()));
    dialog.OnAddressChange(Printf("%zX", address));
    dialog.OnStartChange(Digits(first));
    dialog.OnAmountChange(Printf("%X", amount));
    dialog.OnDirection(direction);
    op.told.clear();
    dialog.OnLoad();
    ASSERT_TRUE(dialog.ended);
  }
};

class TwentyChips : public SerialSeriesJourney, public ::testing::WithParamInterface<Place> {
 protected:
  TwentyChips() : SerialSeriesJourney(GetParam().transport) {}

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
        ++failures;
      }
      writer.chip = standin::Chip{};
      dialog.OnSnProgram();
      ASSERT_EQ(writer.chip.burnt, WithSerial(data, Unit::HighFirstWord, address, Plus(first, good), direction));
    }
    EXPECT_EQ(op.Texts(), Texts{"Serial Number Program Complete"});
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
  const bool menuRoad = GetParam().menuRoad;
  LoadSample("QV8348");
  const std::string sample = Path("samples/" + pyxis::folder::MakeSamples("QV8348").front().fileName);
  for (std::size_t length = 1; length <= 16; ++length) {
    for (const int direction : {0, 1}) {
      SCOPED_TRACE(Printf("length %zu, direction %d", length, direction));
      // One series ends at the very last number of its length, the other carries into the second byte.
      Bytes first(length, direction == 0 ? 0xFF : 0);
      first.back() = direction == 0 ? 0xEC : length == 1 ? 0 : 0xF6;
      const std::size_t address = 0x3FC - length;
      if (menuRoad) {
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
        CSnSetDlg set(true, false, false);
        set.OnInitDialog();
        TheAppState().SnMode = 1;
        Enter(set, address, first, kChips, direction);
        op.files.push_back(sample);
        OnLoadFile();
        ASSERT_TRUE(SnProgressDlg()->visible);
        op.told.clear();
        Press(*SnProgressDlg(), first, address, direction);
      }
      if (HasFatalFailure()) return;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(BothRoads, TwentyChips,
                         ::testing::Values(Place{Transport::Usb, true}, Place{Transport::Usb, false},
                                           Place{Transport::Vendor, true}, Place{Transport::Vendor, false}),
                         [](const auto& place) {
                           return std::string(place.param.transport == Transport::Usb ? "Usb" : "Vendor") +
                                  (place.param.menuRoad ? "Menu" : "IcSelection");
                         });

// The highest places, by how far each IC's limit reaches.
struct LastPlace {
  const char* label;
  Unit unit;
  std::size_t limit, length;
};

TEST_F(SerialSeriesJourney, EachKindOfIcTakesASerialAtItsEnd) {
  for (const LastPlace& c :
       {LastPlace{"QV8333", Unit::HighFirstWord, 0x3FB, 3}, LastPlace{"QV8306", Unit::HighFirstWord, 0x400, 16},
        LastPlace{"QV8336", Unit::HighFirstWord, 0x7FC, 1}, LastPlace{"QV8303", Unit::HighFirstWord, 0x2000, 5},
        LastPlace{"QV8121", Unit::Byte, 0xFFE, 2}, LastPlace{"QV8101", Unit::Byte, 0x7FFE, 16},
        LastPlace{"QVL04", Unit::Byte, 0x8000, 7}, LastPlace{"QVL13", Unit::Byte, 0x4000, 1},
        LastPlace{"QVL01", Unit::HighFirstWord, 0x2000, 4}, LastPlace{"QVL03", Unit::HighFirstWord, 0x1FFF, 4},
        LastPlace{"QVL07", Unit::LowFirstWord, 0x3000, 6}, LastPlace{"QVL10", Unit::HighFirstWord, 0x1800, 2},
        LastPlace{"QV4107", Unit::PackedWord, 0x1000, 5}, LastPlace{"QV4107", Unit::PackedWord, 0x1000, 1},
        LastPlace{"QV4201", Unit::PackedWord, 0x1FFD + 4, 4}, LastPlace{"QV4204", Unit::PackedWord, 0x3FFD + 4, 4}}) {
    for (const int direction : {0, 1}) {
      SCOPED_TRACE(Printf("%s, direction %d", c.label, direction));
      const std::size_t address = c.limit - c.length;
      const Bytes serial = Plus(Bytes(c.length, 0x81), 0x2345);
      TheAppState().SnMode = 0;
      const std::string sample = PutFolderFor(c.label);
      Select(c.label);
      CSnSetDlg set(true, false, false);
      set.OnInitDialog();
      Enter(set, address, serial, 1, direction);
      TheAppState().SnMode = 1;
      op.files.push_back(sample);
      OnLoadFile();
      ASSERT_EQ(op.Texts(), Texts{"Loading Data Ok"});
      writer.chip = standin::Chip{};
      SnProgressDlg()->OnSnProgram();
      EXPECT_EQ(op.told.back().text, "Serial Number Program Complete");
      EXPECT_EQ(writer.chip.burnt, WithSerial(Contents(kDataPackageName), c.unit, address, serial, direction));
      SnProgressDlg()->OnClose();
    }
  }
}

}  // namespace
}  // namespace pyxis::test
