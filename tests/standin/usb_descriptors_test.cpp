#include "standin/usb_descriptors.h"

#include "support/bench.h"

namespace pyxis::test {
namespace {

using standin::AnswerControl;
using standin::ControlRequest;

// By the tables of chapter 9 of the USB specification.
TEST(UsbDescriptors, AnswersToControlRequests) {
  const Bytes device{18, 1, 0, 2, 0xFF, 0, 0, 64, 0x31, 0x7A, 0x02, 0x16, 0, 1, 1, 2, 0, 1};
  const Bytes configuration{9, 2, 32, 0, 1, 1, 0, 0x80, 50};
  const Bytes rest{9, 4, 0, 0, 2, 0xFF, 0, 0, 0, 7, 5, 0x02, 2, 0, 2, 0, 7, 5, 0x81, 2, 0, 2, 0};
  const Bytes maker{20, 3, 'P', 0, 'y', 0, 'x', 0, 'i', 0, 's', 0, 'L', 0, 'o', 0, 'a', 0, 'd', 0};
  using Answer = std::optional<Bytes>;
  // clang-format off
  for (const auto& [what, request, answer] : Table<const char*, ControlRequest, Answer>{
           {"device", {0x80, 6, 0x0100, 0, 64}, device}, {"its head", {0x80, 6, 0x0100, 0, 8}, Part(device, 0, 8)},
           {"configuration head", {0x80, 6, 0x0200, 0, 9}, configuration},
           {"configuration", {0x80, 6, 0x0200, 0, 255}, configuration + rest},
           {"languages", {0x80, 6, 0x0300, 0, 255}, Bytes{4, 3, 9, 4}}, {"maker", {0x80, 6, 0x0301, 0x409, 255}, maker},
           {"no string", {0x80, 6, 0x0303, 0x409, 255}, {}}, {"no descriptor", {0x80, 6, 0x0600, 0, 10}, {}},
           {"status", {0x80, 0, 0, 0, 2}, Bytes{0, 0}}, {"which configuration", {0x80, 8, 0, 0, 1}, Bytes{1}},
           {"which alternate", {0x81, 10, 0, 0, 1}, Bytes{0}}, {"set address", {0, 5, 3, 0, 0}, Bytes{}},
           {"clear halt", {2, 1, 0, 0x81, 0}, Bytes{}}, {"set feature", {0, 3, 1, 0, 0}, Bytes{}},
           {"set configuration", {0, 9, 1, 0, 0}, Bytes{}}, {"set alternate", {1, 11, 0, 0, 0}, Bytes{}},
           {"unknown", {0, 7, 0, 0, 0}, {}}, {"unknown in", {0x80, 12, 0, 0, 2}, {}}, {"class", {0x21, 9, 0, 0, 0}, {}},
           {"vendor in", {0xC0, 6, 0x0100, 0, 18}, {}}})
    // clang-format on
    EXPECT_EQ(AnswerControl(request), answer) << what;
  EXPECT_EQ(AnswerControl({0x80, 6, 0x0302, 0x409, 255})->size(), 2 + 2 * std::string("stand-in writer").size());
}

}  // namespace
}  // namespace pyxis::test
