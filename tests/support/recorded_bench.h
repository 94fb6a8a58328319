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
  // wire, over the bench's transport. The bar starts hidden, on a range that nobody sets.
  void Start();
  void ExpectEvents(const Texts& wanted);

  bool Usb() const { return transport_ == Transport::Usb; }
  // Lists that stand in many others: the information block; one package file with its read-back; what a write or a read
  // of so many bytes shows that drives the bar; reads of the task status, each with its step of a bar that stands at
  // `shown`, 0 for a hidden one.
  static Texts InfoBlock();
  Texts PackageFile(const std::string& area, const Bytes& bytes) const;
  Texts BarBehind(std::size_t bytes) const;
  static Texts Poll(int reads, int divisor, int shown = 1);

  Recorder record;

 private:
  const Transport transport_;
};

}  // namespace pyxis::test
