// For dialogs that show what the writer holds: another one may come while they lie open.
#pragma once

#include <functional>

namespace pyxis {

// Lives as long as the dialog; `arrived` is called behind each arrival, with the new WriterInfoBlock in place.
class WriterWatch {
 public:
  explicit WriterWatch(std::function<void()> arrived);
  ~WriterWatch();
  WriterWatch(const WriterWatch&) = delete;
  WriterWatch& operator=(const WriterWatch&) = delete;

 private:
  friend void TellWriterArrived();
  std::function<void()> arrived_;
};

void TellWriterArrived();

}  // namespace pyxis
