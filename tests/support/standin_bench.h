// A bench with an in-process stand-in writer on one of the two transports. Every breach of the protocol fails the test.
#pragma once

#include "standin/in_process.h"
#include "support/bench.h"

namespace pyxis::test {

enum class Transport { Usb, Vendor };
inline void PrintTo(Transport transport, std::ostream* out) {
  *out << (transport == Transport::Usb ? "Usb" : "Vendor");
}

class StandinBench : public Bench {
 protected:
  explicit StandinBench(Transport transport = Transport::Usb, Model model = Model::Km48);
  ~StandinBench() override;

  // The program folder's files that this IC needs, by the folder's own makers; its sample program file there.
  std::string PutFolderFor(const std::string& label);
  // Selects the IC as IC selection does.
  void Select(const std::string& label);
  // Load File with this file of the bench's folder chosen; forgets what the operator was told before.
  void Load(const std::string& file);
  // Selects, loads the sample and expects the writer to hold the job.
  void LoadSample(const std::string& label);

  standin::WriterModel writer;
  standin::StandinUsbHost usb{writer};
  standin::StandinVendorApi vendor{writer};
};

// A bench for tests that run over each transport: INSTANTIATE_TEST_SUITE_P(BothTransports, Suite, kBothTransports).
class BothTransports : public StandinBench, public ::testing::WithParamInterface<Transport> {
 protected:
  BothTransports() : StandinBench(GetParam()) {}
};
inline const auto kBothTransports = ::testing::Values(Transport::Usb, Transport::Vendor);

}  // namespace pyxis::test
