// A bench with an in-process stand-in writer on one of the two transports. Every breach of the protocol fails the test.
#pragma once

#include <string>

#include "standin/in_process.h"
#include "support/bench.h"

namespace pyxis::test {

enum class Transport { Usb, Vendor };

class StandinBench : public Bench {
 protected:
  explicit StandinBench(Transport transport = Transport::Usb, int model = 1);
  ~StandinBench() override;

  // The program folder's files that this IC needs, by the folder's own makers; the path of its sample program file.
  std::string PutFolderFor(const std::string& label);
  // Selects the IC as IC selection does.
  void Select(const std::string& label);
  // Selects, loads the sample and expects the writer to hold the job.
  void LoadSample(const std::string& label);

  standin::WriterModel writer;
  standin::StandinUsbHost usb{writer};
  standin::StandinVendorApi vendor{writer};
};

}  // namespace pyxis::test
