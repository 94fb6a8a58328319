// A stand-in bench that is recorded. A test of an operation is a start state, one call and the list of its events.
#pragma once

#include "support/recorder.h"
#include "support/standin_bench.h"

namespace pyxis::test {

inline Texts operator+(Texts a, const Texts& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

class RecordedBench : public StandinBench {
 protected:
  explicit RecordedBench(Transport transport = Transport::Usb, Model model = Model::Km48);
  ~RecordedBench() override;

  // What happens from here on, and what is expected to have happened since. A line that begins with "w " is one of the
  // wire, over the bench's transport.
  void Start() { record.Take(); }
  void ExpectEvents(const Texts& wanted);

  // Lists that stand in many others.
  bool Usb() const { return transport_ == Transport::Usb; }
  Texts OnUsb(Texts lines) const { return Usb() ? lines : Texts{}; }
  Texts OnVendor(Texts lines) const { return Usb() ? Texts{} : lines; }
  Texts Peek(const std::string& address) const;  // PeekByte, of four digits with a blank in the middle
  Texts FirmwareBytes() const;                   // code, version and level, back to mode 7
  static Texts InfoBlock();
  // One package file with its read-back.
  Texts PackageFile(const std::string& area, const Bytes& bytes) const;
  // What a transfer that drives the bar shows: before the command, and behind it for a write or a read of so many
  // bytes.
  Texts BarBefore() const { return OnUsb({"bar 0-100 1"}); }
  Texts BarBehind(std::size_t bytes) const;
  // Reads of the task status, each with its step of a bar that stands at `shown`, 0 for a hidden one.
  static Texts Poll(int reads, int divisor, int shown = 1);
  // A good download; `shows`: ProgressMode is 1 before it.
  Texts Packages(const Bytes& option, const Bytes& data, bool shows = false) const;
  Texts Command(const std::string& line, bool shows) const;  // a short command to the writer
  Texts Firmware(const Bytes& image) const;                  // a good load

  Recorder record;

 private:
  const Transport transport_;
};

class RecordedOnBoth : public RecordedBench, public ::testing::WithParamInterface<Transport> {
 protected:
  RecordedOnBoth() : RecordedBench(GetParam()) {}
};

}  // namespace pyxis::test
