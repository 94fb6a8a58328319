// serial.txt byte for byte, for every IC that takes a serial number, against a computation of its own.
#include <sstream>

#include "data/cases.h"
#include "platform/text.h"
#include "pyxisfolder/folder.h"
#include "support/serial_entry.h"
#include "support/standin_bench.h"

namespace pyxis::test {
namespace {

// What an operator enters.
struct Entry {
  std::string chip;
  unsigned address;
  std::size_t length;
  Bytes start;  // 16 bytes, most significant first
  unsigned amount;
  int direction, model;
  bool selectionRoad, exhvIsp, isp;
};

Bytes Expected(const Entry& entry, Bytes file) {
  file.resize(256);
  const bool words = entry.chip == "QV4107" || entry.chip == "QV4201" || entry.chip == "QV4204";
  const auto endMark = static_cast<unsigned>(entry.address + (words ? entry.length / 2 : entry.length));
  const auto direction = static_cast<unsigned>(entry.direction), length = static_cast<unsigned>(entry.length);
  std::size_t at = 53;
  for (const unsigned byte : {(entry.selectionRoad ? 0x20U : 0x10U) + direction, length, entry.address / 256,
                              entry.address % 256, endMark / 256, endMark % 256})
    file[at++] = static_cast<std::uint8_t>(byte);
  file[76] = entry.exhvIsp || entry.isp ? 1 : 0;
  unsigned carry = entry.amount;
  for (std::size_t i = 16; i-- > 0; carry /= 256) {
    file[112 + i] = entry.start[i];
    carry += entry.start[i];
    file[96 + i] = static_cast<std::uint8_t>(carry % 256);
  }
  file[207] = entry.model == 1 ? 0x98 : 0x99;
  return file;
}

class SerialFile : public StandinBench {
 protected:
  bool Enter(const Entry& entry) {
    AppState& app = TheAppState();
    app.selection.SelectedChip = entry.chip;
    app.writer.WriterModel = Model{entry.model};
    std::string digits;
    for (std::size_t i = 16 - entry.length; i < 16; ++i) digits += Printf("%02x", entry.start[i]);
    CSnSetDlg dialog(entry.selectionRoad, entry.exhvIsp, entry.isp);
    return EnterSerial(dialog, {Printf("%zX", entry.length), Printf("%X", entry.address), digits,
                                Printf("%x", entry.amount), entry.direction});
  }

  void Check(const Entry& entry) {
    SCOPED_TRACE(entry.chip + Printf(" length %zu", entry.length));
    pyxis::folder::Filler filler(entry.chip);
    Bytes file(400);
    for (auto& byte : file) byte = static_cast<std::uint8_t>(filler.Next());
    Write("hwversion1.1/" + entry.chip + ".txt", file);
    ASSERT_TRUE(Enter(entry));
    EXPECT_TRUE(op.told.empty());
    const Bytes want = Expected(entry, file);
    EXPECT_EQ(Contents("serial.txt"), want);
    if (entry.selectionRoad) return;
    EXPECT_TRUE(TheAppState().writer.SnLoaded);
    // The writer's own fields begin at 244.
    EXPECT_TRUE(std::equal(want.begin(), want.begin() + 244, writer.OptionArea().begin()));
  }
};

TEST_F(SerialFile, EveryIcOfTheLimits) {
  unsigned n = 0;
  ForEachCase("ic_groups.tsv", "limits of the serial's end", [&, this](const Case& c) {
    const auto limit = static_cast<unsigned>(c.Number(0));
    std::istringstream chips(c[1]);
    for (Entry entry; chips >> entry.chip; ++n) {
      pyxis::folder::Filler filler("start" + entry.chip);
      entry.length = 1 + n % 16;
      entry.address = static_cast<unsigned>(limit - entry.length);
      entry.start = Bytes(16, 0);
      for (std::size_t i = 17 - entry.length; i < 16; ++i) entry.start[i] = static_cast<std::uint8_t>(filler.Next());
      entry.amount = entry.length == 1 ? 200 : 1 + n * 37;
      entry.direction = n % 2;
      entry.model = 1 + n / 2 % 2;
      entry.selectionRoad = n / 3 % 2 != 0;
      entry.exhvIsp = n / 5 % 2 != 0;
      entry.isp = n / 7 % 2 != 0;
      Check(entry);
      entry.address = 0;
      Check(entry);
      entry.address = static_cast<unsigned>(limit - entry.length + 1);
      EXPECT_FALSE(Enter(entry)) << entry.chip;
      EXPECT_EQ(op.Heard(), Texts{Printf("S/N End Address > 0x%X", limit)}) << entry.chip;
    }
  });
  EXPECT_EQ(n, 123U);
  for (const auto& [chip, address] : {std::pair<const char*, unsigned>{"QV4201", 0x1FFD}, {"QV4204", 0x3FFD}})
    Check({chip, address, 4, Bytes(16, 0), 0x123, 1, 1, true, false, false});
}

}  // namespace
}  // namespace pyxis::test
