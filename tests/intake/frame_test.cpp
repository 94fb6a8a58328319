// What all families share: failures in their order, the common fields, the production flags.
#include "converter_bench.h"


namespace pyxis::test {
namespace {

constexpr std::uint32_t kQv8348 = 0x2700;
using Texts = std::vector<std::string>;

class Frame : public ConverterBench {
 protected:
  const Bytes image = Image14(1023, {{1020, 0x3FFF}, {1022, 0x0210}});
};

TEST_F(Frame, FailuresInTheirOrder) {
  const Texts openError{Path("job.hex") + " open file error\n"};
  Write("job.hex", pyxis::folder::ToIntelHex(image));
  Write(kOptionPackageName, Bytes(300, 0x55));

  request.SnMode = true;
  EXPECT_EQ(Convert(kQv8348, "job.hex"), 1);
  EXPECT_EQ(op.Texts(), Texts{"SNFile open file error\n"});
  request.SnMode = false;
  op.told.clear();

  EXPECT_EQ(Convert(kQv8348, "job.hex"), 1);  // no template: the old package stays but for the model
  EXPECT_EQ(op.Texts(), openError);
  Bytes old(300, 0x55);
  old[207] = 152;
  EXPECT_EQ(option, old);
  op.told.clear();

  PutTemplate("QV8348");
  std::filesystem::create_directories(folder / kDataPackageName);
  EXPECT_EQ(Convert(kQv8348, "job.hex"), 3);
  EXPECT_EQ(op.Texts(), openError);
  std::filesystem::remove(folder / kDataPackageName);
  op.told.clear();

  std::filesystem::remove(folder / kOptionPackageName);
  std::filesystem::create_directories(folder / kOptionPackageName);
  EXPECT_EQ(Convert(kQv8348, "job.hex"), 2);
  EXPECT_EQ(op.Texts(), openError);
  std::filesystem::remove(folder / kOptionPackageName);
  op.told.clear();

  std::filesystem::create_directories(folder / "job.bin");
  EXPECT_EQ(Convert(kQv8348, "job.hex"), 4);
  EXPECT_EQ(op.Texts(), openError);
  op.told.clear();
  EXPECT_EQ(Convert(kQv8348, "none.hex"), 4);
  EXPECT_EQ(op.Texts(), Texts{Path("none.hex") + " open file error\n"});
  EXPECT_EQ(TheAppState().ImageChecksum, 0xFFFF);

  EXPECT_EQ(Convert(0x9999, "job.hex"), -1);
}

TEST_F(Frame, ProductionFlags) {
  struct Case {
    bool serial, mass, limit;
    int flags;
  };
  PutTemplate("QV8348");
  Write("serial.txt", Bytes(256, 0x11));
  request.ProductionLimitBcd = PackedDecimal(1234);
  for (const Case& c : {Case{false, false, false, 0xAA}, Case{false, true, false, 16}, Case{false, true, true, 17},
                        Case{false, false, true, 17}, Case{true, true, false, 0xAA}, Case{true, true, true, 17}}) {
    request.SnMode = c.serial;
    request.MassProduction = c.mass;
    request.ProductionLimitOn = c.limit;
    ASSERT_EQ(ConvertHex(kQv8348, image), 0);
    EXPECT_EQ(option[78], c.flags);
    EXPECT_EQ(LoadBe32(&option[80]), c.limit ? 0x00001234U : 0xAAAAAAAAU);
    EXPECT_EQ(option[53], c.serial ? 0x11 : 0xAA);
    EXPECT_EQ(option[127], c.serial ? 0x11 : 0xAA);
    EXPECT_EQ(option[128], 0xAA);
  }
}

TEST_F(Frame, PackedDecimals) {
  EXPECT_EQ(PackedDecimal(99999999), 0x99999999U);
  EXPECT_EQ(PackedDecimal(0), 0U);
  EXPECT_EQ(PackedDecimal(123456789), 0x12345678U);
}

TEST_F(Frame, ShortTemplatesAndTheOtherModel) {
  TheAppState().WriterModel = kModelKm49;
  for (const std::size_t length : {0U, 100U, 208U, 600U}) {
    PutTemplate("QV8348", Bytes(length, 0x33));
    ASSERT_EQ(ConvertHex(kQv8348, image), 0);
    EXPECT_EQ(option.size(), std::max<std::size_t>(length, 208));
    EXPECT_EQ(option[207], 153);
    EXPECT_EQ(option[100], length > 100 ? 0x33 : 0);
  }
}

TEST_F(Frame, NamesWithPointsAndCapitals) {
  PutTemplate("QV8348");
  ASSERT_EQ(ConvertHex(kQv8348, image, "Job.v2.HEX"), 0);
  EXPECT_EQ(TheAppState().LoadedFilePath, Path("Job.v2.bin"));
  EXPECT_EQ(Contents("Job.v2.bin").size(), image.size());
}

}  // namespace
}  // namespace pyxis::test
