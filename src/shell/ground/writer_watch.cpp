#include "shell/ground/writer_watch.h"

#include <algorithm>
#include <vector>

namespace pyxis {

namespace {

std::vector<WriterWatch*>& Watches() {
  static std::vector<WriterWatch*> watches;
  return watches;
}

}  // namespace

WriterWatch::WriterWatch(std::function<void()> arrived) : arrived_(std::move(arrived)) { Watches().push_back(this); }

WriterWatch::~WriterWatch() { std::erase(Watches(), this); }

void TellWriterArrived() {
  // A copy: a dialog may end over it.
  for (const WriterWatch* watch : std::vector(Watches()))
    if (std::ranges::find(Watches(), watch) != Watches().end()) watch->arrived_();
}

}  // namespace pyxis
