// What a run does at the seams, in order, one short line of text each. It stands in front of the transports' bodies, so
// that the answers are real, and is the main window's view. docs/testing.md tells how the lines read.
#pragma once

#include <map>

#include "platform/main_view.h"
#include "platform/update_agent.h"
#include "platform/usb_host.h"
#include "platform/vendor_api.h"
#include "support/bench.h"

namespace pyxis::test {

inline Texts operator+(Texts a, const Texts& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

class Recorder : public MainView, public UsbHost, public VendorApi, public UpdateAgent {
 public:
  Recorder(UsbHost& usb, VendorApi& vendor, ScriptedOperator& op, FakeClock& clock, std::filesystem::path folder);

  // The view must have heard of every change of the controls but the bar's: when the operator looks at the window, and
  // behind a run. What a test itself changes between its runs isn't watched.
  void LookAtControls(const std::string& when) const;
  bool watches = false;
  // The lines since the last call. What changed before it is no event of the next run.
  Texts Take();
  void Line(const std::string& text);
  // Called behind each line, to change something in the middle of a run.
  std::function<void(const std::string&)> afterLine = [](const std::string&) {};
  std::int32_t updateResult = 1;      // of the update client
  bool snWindowsCome = true;          // of CreateSnProgress
  std::map<std::string, Bytes> feed;  // what the next reads of a command bring, in place of the writer's answer

  void ControlsChanged() override { FindControlChanges(); }
  void ProgressChanged() override;
  void HexViewChanged() override;
  void SnProgressChanged() override;
  bool CreateSnProgress() override;
  void PumpPaint() override;
  void CloseMainWindow() override { Line("close main window"); }
  void EndMainWindow() override { Line("end main window"); }
  void EnableMainWindow(bool enabled) override { Line(enabled ? "main window on" : "main window off"); }

  std::vector<UsbBus> FindDevices() override { return usb_.FindDevices(); }
  Handle Open(const UsbDeviceEntry& device) override;
  int SetConfiguration(Handle handle, int configuration) override;
  int ClaimInterface(Handle handle, int interface) override;
  int BulkWrite(Handle handle, int endpoint, const std::uint8_t* data, int count, int timeout) override;
  int BulkRead(Handle handle, int endpoint, std::uint8_t* data, int count, int timeout) override;
  void Close(Handle handle) override;
  std::string Error() override { return usb_.Error(); }

  int VMOpen(int model, int a, int b) override;
  void VMSetTimeout(int timeout) override;
  void VMClose() override;
  int VMWrite(std::uint8_t opcode, const std::uint8_t* data, std::uint32_t length) override;
  int VMRead(std::uint8_t opcode, std::uint8_t* buffer, std::uint32_t length) override;

  std::int32_t CallUpdateAgent(const char* request) override;

 private:
  void Add(const std::string& text);  // without a look at what else has happened
  void AddTo(const std::string& verb, const std::string& object);
  void Look();  // for files and waits
  void FindFiles();
  void FindControlChanges();
  void BarToken(const std::string& token);
  void CloseRun();
  void BeginFrame(const std::uint8_t* block, int count);
  void EndFrame(bool good);
  void Feed(const std::string& command, std::span<std::uint8_t> data);

  UsbHost& usb_;
  VendorApi& vendor_;
  FakeClock& clock_;
  const std::filesystem::path folder_;
  std::map<std::string, std::uintmax_t> sizes_;  // of the files that were written
  Texts lines_;
  MainControls shown_;
  int low_ = -1, high_ = -1;  // no range has been seen yet
  int firstOfRun_ = -1, lastOfRun_ = -1;
  std::size_t hexBytes_ = 0;
  bool hexBlank_ = false;

  // The frame under way.
  bool inFrame_ = false, sends_ = false, paintDue_ = false;
  std::size_t frameLine_ = 0, wanted_ = 0;
  int paints_ = 0;
  Bytes frameData_;
  std::string frameName_;
  std::size_t transfers_ = 0;
};

// A control by its name in the lines.
ControlId ControlNamed(const std::string& name);
// "OP_SET_MODE" without its prefix.
std::string NameOf(std::uint8_t opcode);
// Readings of the task status in a row are one line with their number.
Texts Folded(const Texts& lines);
// Data on the wire: up to 16 bytes as they are, else their number and a hash.
std::string Shown(std::span<const std::uint8_t> data);

}  // namespace pyxis::test
