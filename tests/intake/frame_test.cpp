// What all families share: failures in their order, the common fields, the production flags.
#include "converter_bench.h"

namespace pyxis::test {
namespace {

constexpr std::uint32_t kFrameIc = 0x2700;

class Frame : public ConverterBench {
 protected:
  const Bytes image = Image14(1023, {{1020, 0x3FFF}, {1022, 0x0210}});
};

TEST_F(Frame, FailuresInTheirOrder) {
  const std::string openError = Path("job.hex") + " open file error\n";
  const auto fails = [&](int code, const std::string& file, const std::string& told) {
    EXPECT_EQ(Convert(kFrameIc, file), code);
    EXPECT_EQ(op.Heard(), Texts{told});
  };
  Write("job.hex", pyxis::folder::ToIntelHex(image));
  Write(kOptionPackageName, Bytes(300, 0x55));

  request.SnMode = true;
  fails(1, "job.hex", "SNFile open file error\n");
  request.SnMode = false;

  fails(1, "job.hex", openError);  // no template: the old package stays but for the model
  Bytes old(300, 0x55);
  old[207] = 152;
  EXPECT_EQ(option, old);

  PutTemplate("QV8348");
  for (const auto& [blocked, code] :
       Table<const char*, int>{{kDataPackageName, 3}, {kOptionPackageName, 2}, {"job.bin", 4}}) {
    std::filesystem::remove(folder / blocked);
    std::filesystem::create_directories(folder / blocked);
    fails(code, "job.hex", openError);
    std::filesystem::remove(folder / blocked);
  }
  fails(4, "none.hex", Path("none.hex") + " open file error\n");
  EXPECT_EQ(TheAppState().conversion.ImageChecksum, 0xFFFF);
  EXPECT_EQ(Convert(0x9999, "job.hex"), -1);
}

TEST_F(Frame, ProductionFlags) {
  PutTemplate("QV8348");
  Write("serial.txt", Bytes(256, 0x11));
  request.ProductionLimitBcd = PackedDecimal(1234);
  // clang-format off
  for (const auto& [serial, mass, limit, flags] : Table<bool, bool, bool, int>{
           {false, false, false, 0xAA}, {false, true, false, 16}, {false, true, true, 17}, {false, false, true, 17},
           {true, true, false, 0xAA}, {true, true, true, 17}}) {
    // clang-format on
    request.SnMode = serial;
    request.MassProduction = mass;
    request.ProductionLimitOn = limit;
    ASSERT_EQ(ConvertHex(kFrameIc, image), 0);
    EXPECT_EQ(LoadBe32(&option[80]), limit ? 0x00001234U : 0xAAAAAAAAU);
    ExpectBytes({{78, flags}, {53, serial ? 0x11 : 0xAA}, {127, serial ? 0x11 : 0xAA}, {128, 0xAA}});
  }
  for (const auto& [count, packed] : Table<int, std::uint32_t>{{99999999, 0x99999999}, {0, 0}, {123456789, 0x12345678}})
    EXPECT_EQ(PackedDecimal(count), packed);
}

TEST_F(Frame, ShortTemplatesAndTheOtherModel) {
  TheAppState().writer.WriterModel = Model::Km49;
  for (const std::size_t length : {0U, 100U, 208U, 600U}) {
    PutTemplate("QV8348", Bytes(length, 0x33));
    ASSERT_EQ(ConvertHex(kFrameIc, image), 0);
    EXPECT_EQ(option.size(), std::max<std::size_t>(length, 208));
    EXPECT_EQ(All(option[207], option[100]), All(153, length > 100 ? 0x33 : 0));
  }
}

TEST_F(Frame, NamesWithPointsAndCapitals) {
  PutTemplate("QV8348");
  ASSERT_EQ(ConvertHex(kFrameIc, image, "Job.v2.HEX"), 0);
  EXPECT_EQ(TheAppState().conversion.LoadedFilePath, Path("Job.v2.bin"));
  EXPECT_EQ(Contents("Job.v2.bin").size(), image.size());
}

}  // namespace
}  // namespace pyxis::test
