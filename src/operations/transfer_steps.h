// The bar around a package or firmware transfer.
#pragma once

namespace pyxis {

// With velmarapi, which reports no progress by itself, the operation shows fixed positions; on the frame link it shows
// none, since the transfers drive the bar.
class TransferSteps {
 public:
  TransferSteps();  // the bar's range
  // Shows at once.
  void Show(int position) const;

 private:
  bool shows_;
};

}  // namespace pyxis
