// Every conversion of tests/data/conversion_vectors.tsv, whose head tells how each input is built.
#include <random>

#include "data/cases.h"
#include "intake/convert.h"
#include "intake/package_files.h"
#include "platform/text.h"

namespace pyxis::test {
namespace {

Bytes Random(std::size_t size, unsigned seed) {
  std::minstd_rand engine(seed);
  Bytes bytes(size);
  for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(engine() >> 16);
  return bytes;
}

Bytes FromHex(const std::string& digits) {
  Bytes bytes;
  for (std::size_t i = 0; i + 1 < digits.size(); i += 2)
    bytes.push_back(static_cast<std::uint8_t>(std::stoul(digits.substr(i, 2), nullptr, 16)));
  return bytes;
}

void Overlay(Bytes& image, std::size_t at, const Bytes& bytes) {
  for (std::size_t i = 0; i < bytes.size() && at + i < image.size(); ++i) image[at + i] = bytes[i];
}

// `patches`: offset=hex or offset=hex*N, comma-separated.
void Patch(Bytes& image, const std::string& patches) {
  std::istringstream in(patches == "-" ? "" : patches);
  for (std::string patch; std::getline(in, patch, ',');) {
    const std::size_t equals = patch.find('='), star = patch.find('*');
    const Bytes piece = FromHex(patch.substr(equals + 1, star - equals - 1));
    const std::size_t times = star == std::string::npos ? 1 : std::stoul(patch.substr(star + 1));
    Bytes run;
    for (std::size_t i = 0; i < times; ++i) run.insert(run.end(), piece.begin(), piece.end());
    Overlay(image, std::stoul(patch), run);
  }
}

// Records of 16 bytes, the way tests/data tells; pyxisfolder's own writer is too slow for all rows.
Bytes IntelHex(const Bytes& image) {
  Bytes text;
  std::uint8_t sum = 0;
  const auto put = [&](std::size_t byte) {
    for (const std::size_t digit : {byte >> 4 & 15, byte & 15})
      text.push_back(static_cast<std::uint8_t>("0123456789ABCDEF"[digit]));
    sum = static_cast<std::uint8_t>(sum + byte);
  };
  for (std::size_t at = 0; at < image.size(); at += 16) {
    const std::size_t count = std::min<std::size_t>(16, image.size() - at);
    text.push_back(':');
    sum = 0;
    for (const std::size_t byte : {count, at >> 8, at & 0xFF, std::size_t{0}}) put(byte);
    for (std::size_t i = at; i < at + count; ++i) put(image[i]);
    put(0x100U - sum);
    text.push_back('\n');
  }
  return text + Bytes{':', '0', '0', '0', '0', '0', '0', '0', '1', 'F', 'F', '\n'};
}

std::string Fnv(const Bytes& bytes) {
  std::uint64_t hash = 0xcbf29ce484222325;
  for (const std::uint8_t byte : bytes) hash = (hash ^ byte) * 0x100000001b3;
  return Printf("%016llx", static_cast<unsigned long long>(hash));
}

class Vectors : public Bench {
 protected:
  std::string HashOf(const std::string& name, bool withTime = false) {
    if (!std::filesystem::exists(folder / name)) return std::string(16, '0');
    Bytes bytes = Contents(name);
    if (withTime) Overlay(bytes, 192, Bytes(15, 0));
    return Fnv(bytes);
  }
  std::string Shown() const {
    const std::string& path = TheAppState().conversion.LoadedFilePath;
    return path.empty() ? "-" : path.substr(path.rfind('.') + 1);
  }
};

TEST(Convert, TheLimitIsPackedDecimal) {
  EXPECT_EQ(All(PackedDecimal(-1), PackedDecimal(0), PackedDecimal(1234), PackedDecimal(1234567890)),
            All(0U, 0U, 0x1234U, 0x12345678U));
}

TEST_F(Vectors, EveryConversion) {
  const Texts columns{"code of the converter", "result",    "checksum", "config", "dual",
                      "unprotected",           "used",      "partial",  "shown",  "option package",
                      "data package",          "serial.txt"};
  const auto rows = ReadTsv("conversion_vectors.tsv");
  EXPECT_EQ(rows.size(), 685U);
  int line = 0;
  for (const Texts& row : rows) {
    ASSERT_EQ(row.size(), 23U);
    const std::string &kind = row[3], &flags = row[8], &limit = row[10];
    const auto code = static_cast<std::uint32_t>(std::stoul(row[0], nullptr, 16));
    AppState& app = TheAppState();
    const std::string appDir = app.program.AppDir;
    ResetAppState();
    app.program.AppDir = appDir;
    app.writer.HwFolder = "hwversion1.1";
    app.writer.WriterModel = Model::Km48;
    std::filesystem::remove_all(folder);
    Write("hwversion1.1/" + row[2] + ".txt", Random(512, code));
    Bytes serial = Random(256, code + 1);
    Overlay(serial, 55, FromHex(row[7]));
    Write(kSerialFileName, serial);
    Bytes image = Random(std::stoul(row[4]), static_cast<unsigned>(std::stoul(row[5])));
    Patch(image, row[6]);

    const auto has = [&](char flag) { return flags.find(flag) != std::string::npos; };
    ConvertRequest request;
    request.SelectedChip = row[1];
    request.SnMode = has('s');
    request.ExhvIsp = has('e');
    request.IspProgram = has('i');
    request.MassProduction = has('m');
    request.ProductionLimitOn = limit != "-";
    request.ProductionLimitBcd = limit == "-" ? 0 : PackedDecimal(std::stoi(limit));
    auto optionValue = static_cast<std::uint32_t>(std::stoul(row[9]));
    Write("job." + kind, kind == "hex" || kind == "velmar" ? IntelHex(image) : image);
    request.ChipCode = code;
    request.OptionValue = &optionValue;
    request.Path = Path("job." + kind);
    const int own = ConvertFile(request).code;
    const auto number = [](auto value) { return std::to_string(value); };
    ExpectCells(Printf("row %d, code %s (%s)", ++line, row[0].c_str(), row[1].c_str()), columns,
                {number(own), number(own == 0 ? 0 : 1), Printf("%04X", app.conversion.ImageChecksum),
                 number(app.conversion.SystemConfigWord), number(app.conversion.DualSkip),
                 number(app.conversion.ImageUnprotected), number(app.conversion.UsedLength),
                 number(app.conversion.PartialChecksum), Shown(), HashOf(kOptionPackageName, true),
                 HashOf(kDataPackageName), HashOf(kSerialFileName)},
                {row.begin() + 11, row.end()});
  }
}

}  // namespace
}  // namespace pyxis::test
