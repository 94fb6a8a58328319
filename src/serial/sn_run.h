// The dialog Serial Number Program: chip by chip to the end of a run.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "serial/big_number.h"
#include "shell/ground/outcome.h"
#include "shell/ground/writer_watch.h"

namespace pyxis {

class CSnProgramDlg {
 public:
  explicit CSnProgramDlg(bool snFromIcSelection);

  void OnInitDialog();
  // The default button: one chip. Refused while the button is off; failed: VerdictFailed.
  Outcome OnSnProgram();
  void OnSnSet();
  void OnResetCount();
  void OnClose();

  // The writer holds the series that `option` tells, an option package or its beginning; of another writer that comes
  // with another one no chip may follow.
  void Begin(std::span<const std::uint8_t> option);

  // Fields from SnRecord, as Load File wants them on the modeless instance.
  void RefreshFields();

  std::string chipText, startText, endText, startAddressText, endAddressText, okText, ngText, totalText;
  bool snProgramEnabled = false;
  bool snSetEnabled = true;
  bool visible = false;  // of the modeless instance
  bool ended = false;    // of a modal run
  bool SnFromIcSelection;
  std::function<void()> Changed = [] {};

 private:
  void ShowCounters();
  void OnWriterArrived();
  std::vector<std::uint8_t> series_;  // as the writer holds it: SeriesOf a block
  WriterWatch watch_{[this] { OnWriterArrived(); }};
  BigNumber okCount_, ngCount_, totalCount_, workSerial_, endSerial_;
};

// The one modeless instance of Load File; null before the first run.
std::unique_ptr<CSnProgramDlg>& SnProgressDlg();

// Load File's last step: creates or refreshes the instance, shows or hides it by SnMode, and switches the four buttons.
// `arrived`: the writer holds this load's packages, and so begins its series at the first serial; otherwise it goes on
// with what it had, and so do the shown serial and the button.
void BringSnProgressUpToDate(bool arrived);

// Another selection, or a load that broke off: the series that the instance shows may no longer be the writer's. The
// next good load enables it again.
void StopSnProgress();

// The menu command Serial Number Program.
void OnSerialNumberProgram();

}  // namespace pyxis
