// A series that pyxisjob puts through with a record, and that is cut off at random places: in a load, in a task,
// between two chips, in the middle of a write to the record. Each time it is started again, with --resume, until
// nothing is left. Then the record's serials and what the chips carry are compared with the soak's own count.
#pragma once

#include <map>
#include <string>

#include "soak/line.h"

namespace pyxis::soak {

class RecordedLine : public test::StandinBench {
 public:
  RecordedLine(test::Transport transport, std::uint64_t seed, Totals& totals);
  void TestBody() override {}
  void Run();

 private:
  class Operator;
  struct Ended {
    bool cut = false;
    int exitCode = 0;
  };

  // One process of the runner. `mayBeCut`: the power goes at some look at the clock.
  Ended Process(const std::string& words, bool mayBeCut);
  void PutChip();
  bool EndsTheDay() { return chance_.OneIn(12); }
  std::string SeriesWords() const;
  test::Texts Lines() const;  // of the record, without what has no line feed
  void Tear();
  std::uint64_t CheckRecord() const;  // how many serials it shows as OK

  test::Transport transport_;
  Chance chance_;
  Totals& totals_;
  ProgramState program_;
  std::string sample_;
  Series series_;
  Bytes data_;                          // of the job, without a serial
  std::map<std::size_t, Bytes> chips_;  // as burnt, by the record's line
  std::size_t inSocket_ = 0;            // the line of the chip in the socket
  std::uint64_t presses_ = 0;
};

}  // namespace pyxis::soak
