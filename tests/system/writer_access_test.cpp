#include "system/writer_access.h"

#include "support/bench.h"

namespace pyxis::test {
namespace {

class WriterAccess : public Bench {};

// Root may open every file that is there, so the file that can't be opened is one that isn't.
TEST_F(WriterAccess, AWriterThatMayNotBeOpenedIsToldWithItsFile) {
  const auto device = [this](const std::string& name, const char* vendor, const char* product, const char* number) {
    for (const auto& [file, text] : Table<const char*, const char*>{
             {"/idVendor", vendor}, {"/idProduct", product}, {"/busnum", "13\n"}, {"/devnum", number}})
      WriteText("sys/" + name + file, text);
  };
  const auto words = [this] { return MissingRightWords(Path("sys"), Path("dev")); };
  EXPECT_EQ(words(), "");
  device("1-1", "7a31\n", "1603\n", "9\n");
  device("usb1", "1d6b\n", "1602\n", "1\n");
  EXPECT_EQ(words(), "");
  device("1-2", "7a31\n", "1602\n", "12\n");
  EXPECT_NE(words().find(Path("dev/013/012")), std::string::npos);
  WriteText("dev/013/012", "");
  EXPECT_EQ(words(), "");
}

}  // namespace
}  // namespace pyxis::test
