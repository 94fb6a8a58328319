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

  // Runs it and expects these events. A line that begins with "w " is one of the wire, over the bench's transport.
  template <typename Call>
  void ExpectEvents(Call call, const Texts& wanted) {
    record.Take();
    call();
    Compare(record.Take(), wanted);
  }

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

  Recorder record;

 private:
  void Compare(const Texts& got, const Texts& wanted) const;
  const Transport transport_;
};

class RecordedOnBoth : public RecordedBench, public ::testing::WithParamInterface<Transport> {
 protected:
  RecordedOnBoth() : RecordedBench(GetParam()) {}
};

}  // namespace pyxis::test
