#include "standin/usb_descriptors.h"

#include "data/cases.h"
#include "support/wire_log.h"

namespace pyxis::test {
namespace {

TEST(UsbDescriptors, AnswersToControlRequests) {
  ForEachCase("usb_descriptors.tsv", "requests", [](const Case& c) {
    const Texts words = Parts(c[0], ' ');
    const auto number = [&](std::size_t i) { return static_cast<std::uint16_t>(std::stoi(words.at(i), nullptr, 16)); };
    const auto answer = standin::AnswerControl(
        {static_cast<std::uint8_t>(number(0)), static_cast<std::uint8_t>(number(1)), number(2), number(3), number(4)});
    EXPECT_EQ(answer ? Hex(answer->data(), answer->size()) : "stall", c[1]);
  });
}

}  // namespace
}  // namespace pyxis::test
