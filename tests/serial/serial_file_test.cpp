// serial.txt byte for byte, for every IC that takes a serial number, against a computation of its own.
#include <sstream>

#include "platform/text.h"
#include "pyxisfolder/folder.h"
#include "support/serial_entry.h"
#include "support/standin_bench.h"

namespace pyxis::test {
namespace {

// The limit of the end address, and the ICs that it holds for.
// clang-format off
const Table<unsigned, const char*> kGroups{
    {0x3FB, "QV8333 QV8334 QV8335 QV8370 QV8371 QV8372 QV8502 QV8503_2XX"},
    {0x3FC, "QV8323 QV8324 QV8325 QV8326 QV8327 QV8328 QV8329 QV8330 QV8331 QV8332 QV8348 QV8349 QV8350 QV8351 QV8352 "
            "QV8353 QV8354 QV8355 QV8356 QV8357 QV8358 QV8359 QV8360 QV8361 QV8362 QV8363 QV8364 QV8365"},
    {0x400, "QV8306 QV8307 QV8314 QV8315 QV8316 QV8319 QVX01 QVX02"},
    {0x7FC, "QV8336 QV8337 QV8338 QV8339 QV8340 QV8341 QV8342 QV8343 QV8366 QV8367 QV8373 QV8374 QV8375 QV8503_5XX "
            "QV8503_8XX"},
    {0x800, "QV8305 QV8308 QV8309 QV8310 QV8311 QV8312 QV8317 QV8320 QV8321 QV8322"},
    {0xFFB, "QV8347 QV8378"}, {0xFFC, "QV8344 QV8345 QV8346 QV8368 QV8376 QV8377 QV8501"},
    {0xFFE, "QV8121 QV8122 QV8401"}, {0x1000, "QV4107 QV8201 QV8202 QV8301 QV8302 QV8313 QV8318 QVL11"},
    {0x1800, "QVL10"}, {0x1FFE, "QV8106 QV8107 QV8108 QV8109 QV8111 QV8112 QV8113 QV8114 QV8115 QV8116 QV8117 QV8118"},
    {0x1FFF, "QVL03"}, {0x2000, "QV8303 QV8304 QVL01 QVL02 QVL09 QVL12 QVX03"}, {0x3000, "QVL07"},
    {0x3FFE, "QV8103 QV8104 QV8105 QV8119 QV8120"}, {0x4000, "QV8110 QVL05 QVL13"}, {0x6000, "QVL06"},
    {0x7FFE, "QV8101 QV8102"}, {0x8000, "QVL04"}};
// clang-format on

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
  for (const auto& [limit, names] : kGroups) {
    std::istringstream chips(names);
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
  }
  EXPECT_EQ(n, 123U);
  for (const auto& [chip, address] : {std::pair<const char*, unsigned>{"QV4201", 0x1FFD}, {"QV4204", 0x3FFD}})
    Check({chip, address, 4, Bytes(16, 0), 0x123, 1, 1, true, false, false});
}

}  // namespace
}  // namespace pyxis::test
