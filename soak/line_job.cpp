// The job: Device, Load File, Set Protect, and the cable.
#include "catalogue/ic_select.h"
#include "intake/load_file.h"
#include "options/option_select.h"
#include "options/set_protect.h"
#include "shell/device_arrival.h"
#include "shell/on_device.h"
#include "soak/line.h"

namespace pyxis::soak {

namespace {

constexpr std::uint64_t kTransfersOfALoad = 120;

}  // namespace

void Line::Select(bool serials) {
  bool done = false;
  op.icSelect = [&](CIcSelectDlg& dialog) {
    if (chance_.OneIn(30)) {
      Fails("Device cancelled");
      return DialogEnd::Cancel;
    }
    Expect(dialog.OnTypedName(ic_->label, true), "the IC isn't offered");
    if (serials)
      Expect(dialog.displaySerial.enabled, std::string("Display Serial Number isn't offered for ") + ic_->label);
    dialog.OnDisplaySerial(serials);
    limit_ = dialog.productionLimit.enabled && chance_.OneIn(3) ? 1 + chance_.Below(150) : 0;
    dialog.OnProductionLimit(limit_ != 0);
    if (limit_ != 0) dialog.OnLimitText(std::to_string(limit_));
    done = dialog.OnOk();
    return DialogEnd::Ok;
  };
  op.snSet = [&](CSnSetDlg& dialog) {
    if (file_ && fileIc_ == ic_->label && file_->road == Road::Selection && chance_.OneIn(20)) {
      Fails("set-up cancelled");
      StartSeries(*file_);
      return DialogEnd::Cancel;
    }
    return FillIn(dialog, Road::Selection);
  };
  while (!done) OnDevice();
  Expect(!SnProgressDlg() || !SnProgressDlg()->snProgramEnabled, "S/N Program is on after another selection");
  deviceCancelled_ = false;
}

// Leaves serial number mode, but the series goes on in its window.
void Line::CancelDevice() {
  Fails("Device cancelled");
  op.icSelect = nullptr;
  OnDevice();
  deviceCancelled_ = true;
}

void Line::CancelLoad() {
  Fails("Load File cancelled");
  op.files.clear();
  Expect(OnLoadFile().end == End::Cancelled, "Load File without a file does something");
}

DialogEnd Line::ChooseProtection(COptionSelectDlg& dialog) {
  dialog.Click(COptionSelectDlg::Protection, static_cast<int>(chance_.Below(2)));
  dialog.OnOk();
  return DialogEnd::Ok;
}

bool Line::LoadOnce() {
  op.optionSelect = [&](COptionSelectDlg& dialog) {
    return chance_.OneIn(10) ? DialogEnd::Cancel : ChooseProtection(dialog);
  };
  bool sound = true;
  if (chance_.OneIn(3)) {
    sound = false;
    if (writersIc_ == ic_->label && chance_.OneIn(2)) {
      PullWithin(kTransfersOfALoad, "cable pulled in a load");
    } else {
      Fails("read-back damaged");
      writer.faults.damageAreaByte = chance_.OneIn(2) ? chance_.Below(200) : 600 + chance_.Below(400);
    }
  }
  op.files = {Path(samples_.at(ic_->label))};
  ++totals_.loads;
  Note("load");
  const bool pulled = pulled_;
  const bool before = SnProgressDlg() && SnProgressDlg()->snProgramEnabled;
  const bool good = OnLoadFile().Good();
  Expect(good || !sound, "a sound load has failed");
  Expect(!good || sound || pulled, "a damaged read-back has passed");
  if (!good && SnProgressDlg())
    Expect(SnProgressDlg()->snProgramEnabled == (before && !pulled), "S/N Program after a failed load");
  writer.faults.damageAreaByte.reset();
  if (pulled) Replug();
  deviceAgain_ = pulled;
  op.told.clear();
  // A cable that went at the very end of a good load leaves the button off: the operator loads once more.
  const bool serials = TheAppState().selection.SnMode;
  return good && (!pulled || !serials || SnProgressDlg()->snProgramEnabled);
}

// A writer that has come back shows the job that it holds, so the operator chooses Device again.
void Line::LoadUntilGood() {
  while (!LoadOnce())
    if (deviceAgain_) Select(TheAppState().selection.SnMode);
  writersIc_ = ic_->label;
  data_ = Contents("buffer_data.prog");
  produced_ = 0;
}

void Line::SetProtect() {
  const bool cancels = chance_.OneIn(5);
  op.optionSelect = [&](COptionSelectDlg& dialog) { return cancels ? DialogEnd::Cancel : ChooseProtection(dialog); };
  bool sound = true;
  if (chance_.OneIn(3)) {
    sound = false;
    if (chance_.OneIn(2)) {
      PullWithin(60, "cable pulled in Set Protect");
    } else {
      Fails("read-back damaged");
      writer.faults.damageAreaByte = chance_.Below(512);
    }
  }
  const bool good = OnSetProtect().Good();
  if (sound) Same(good, !cancels, "Set Protect");
  writer.faults.damageAreaByte.reset();
  if (pulled_) Replug();
  op.told.clear();
}

void Line::PullWithin(std::uint64_t transfers, const char* kind) {
  Fails(kind);
  writer.faults.disconnectAfter = static_cast<int>(chance_.Below(transfers));
  pulled_ = true;
}

void Line::Replug() {
  pulled_ = false;
  writer.faults.disconnectAfter = 0;
  OnDeviceEvent({DeviceEvent::Kind::Removal, kWriterInterfaceClass});
  writer.faults.disconnectAfter.reset();
  vendor.pluggedIn = true;
  OnDeviceEvent({DeviceEvent::Kind::Arrival, kWriterInterfaceClass});
  Expect(TheAppState().writer.WriterConnected, "the writer isn't found again");
}

}  // namespace pyxis::soak
