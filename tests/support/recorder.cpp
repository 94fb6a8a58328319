#include "support/recorder.h"

#include <algorithm>
#include <chrono>

#include "platform/byte_order.h"
#include "platform/text.h"
#include "serial/sn_run.h"
#include "support/wire_log.h"
#include "view/hex_view.h"

namespace pyxis::test {

namespace {

constexpr const char* kOpcodes[] = {
    "SET_MODE",   "TEST_SELECT", "TEST_BYTE",   "TEST_SET",    "IDENTITY",     "TEST_MEASURE",
    "6",          "7",           "8",           "9",           "10",           "11",
    "12",         "13",          "14",          "SET_ADDRESS", "WRITE_MEMORY", "READ_MEMORY",
    "WRITE_AREA", "READ_AREA",   "SELECT_AREA", "START_TASK",  "TASK_STATUS",  "CONTROL",
    "READ_CHIP"};
constexpr const char* kControls[] = {"Auto",        "BlankCheck", "Program",  "Verify", "Read",     "WriterTest",
                                     "SmartOption", "FileField",  "ChipName", "Buffer", "Checksum", "HexView",
                                     "Protect",     "Unprotect",  "Fast",     "Dual",   "32K-",     "32K+",
                                     "EXHV-ISP",    "ISP",        "Mass",     "Limit"};
static_assert(std::size(kControls) == static_cast<std::size_t>(ControlId::Count));

constexpr int kBlock = 13, kChunk = 512;
const std::filesystem::file_time_type kLongAgo = std::filesystem::file_time_type::clock::now() - std::chrono::years(5);
// Looks at the clock in a row that are a wait, not a bound.
constexpr std::uint32_t kWait = 20;

bool FromWriter(std::uint8_t opcode) {
  return opcode == 4 || opcode == 5 || opcode == 17 || opcode == 19 || opcode == 22 || opcode == 24;
}

}  // namespace

ControlId ControlNamed(const std::string& name) {
  const auto found = std::find(std::begin(kControls), std::end(kControls), name);
  EXPECT_NE(found, std::end(kControls)) << name;
  return static_cast<ControlId>(found - std::begin(kControls));
}

std::string NameOf(std::uint8_t opcode) {
  return opcode < std::size(kOpcodes) ? kOpcodes[opcode] : std::to_string(opcode);
}

std::string Shown(std::span<const std::uint8_t> data) {
  if (data.size() <= 16) return Hex(data.data(), data.size());
  std::uint32_t hash = 0x811C9DC5;
  for (const std::uint8_t byte : data) hash = (hash ^ byte) * 0x01000193;
  return Printf("%zu #%08X", data.size(), hash);
}

Texts Folded(const Texts& lines) {
  Texts folded;
  std::size_t times = 0;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    ++times;
    if (i + 1 < lines.size() && lines[i + 1] == lines[i] && lines[i].find("TASK_STATUS") != std::string::npos) continue;
    folded.push_back(times == 1 ? lines[i] : lines[i] + Printf(" x%zu", times));
    times = 0;
  }
  return folded;
}

Recorder::Recorder(UsbHost& usb, VendorApi& vendor, ScriptedOperator& op, FakeClock& clock,
                   std::filesystem::path folder)
    : usb_(usb), vendor_(vendor), clock_(clock), folder_(std::move(folder)), shown_(TheMainControls()) {
  op.heard = [this](const std::string& line) {
    LookAtControls(line);
    Line(line);
  };
}

void Recorder::LookAtControls(const std::string& when) const {
  MainControls now = TheMainControls();
  now.statusBar.position = shown_.statusBar.position;
  now.statusBar.progressVisible = shown_.statusBar.progressVisible;
  now.statusBar.low = shown_.statusBar.low;
  now.statusBar.high = shown_.statusBar.high;
  EXPECT_TRUE(!watches || now == shown_) << when << ": a change that the view hasn't heard of";
}

Texts Recorder::Take() {
  FindControlChanges();
  Look();
  CloseRun();
  hexBytes_ = TheHexView().editing.Data.size();
  hexBlank_ = TheHexView().Blanked;
  return Folded(std::exchange(lines_, {}));
}

void Recorder::Line(const std::string& text) {
  Look();
  Add(text);
  afterLine(text);
}

void Recorder::Add(const std::string& text) {
  CloseRun();
  paintDue_ = false;
  std::string line = text;
  for (std::size_t at; (at = line.find(folder_.string() + "/")) != std::string::npos;)
    line.erase(at, folder_.string().size() + 1);
  lines_.push_back(line);
}

void Recorder::AddTo(const std::string& verb, const std::string& object) {
  Look();
  if (!lines_.empty() && lines_.back().starts_with(verb + " ")) {
    lines_.back() += " " + object;
  } else {
    Line(verb + " " + object);
  }
}

// A file that was written in front of a wait, which is no event of itself, comes first.
void Recorder::Look() {
  FindFiles();
  const std::uint32_t waited = clock_.Waited();
  if (waited >= kWait) Add(Printf("wait %u", waited));
}

// Every file that was written since the last look; its time is put back so that the next write shows again.
void Recorder::FindFiles() {
  std::map<std::string, std::uintmax_t> written;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_)) {
    if (!entry.is_regular_file() || entry.last_write_time() == kLongAgo) continue;
    written[entry.path().lexically_relative(folder_).string()] = entry.file_size();
    std::filesystem::last_write_time(entry.path(), kLongAgo);
  }
  for (const auto& [name, size] : written) {
    const auto before = sizes_.find(name);
    // An empty file that is emptied once more shows nothing.
    if (size != 0 || before == sizes_.end() || before->second != 0)
      Add(Printf("file %s %zu", name.c_str(), static_cast<std::size_t>(size)));
    sizes_[name] = size;
  }
}

void Recorder::FindControlChanges() {
  const MainControls& now = TheMainControls();
  for (std::size_t i = 0; i < std::size(kControls); ++i) {
    const ControlState &was = shown_.controls[i], &is = now.controls[i];
    if (is.enabled != was.enabled) AddTo(is.enabled ? "on" : "off", kControls[i]);
    if (is.visible != was.visible) AddTo(is.visible ? "show" : "hide", kControls[i]);
    if (is.checked != was.checked) AddTo(is.checked ? "mark" : "unmark", kControls[i]);
    if (is.text != was.text) Line(std::string(kControls[i]) + " = " + is.text);
  }
  if (now.title != shown_.title) Line("title = " + now.title);
  if (now.pinFigure != shown_.pinFigure) Line("figure = " + now.pinFigure);
  const CProgStatusBar &is = now.statusBar, &was = shown_.statusBar;
  if (is.pane0 != was.pane0) Line("status = " + is.pane0);
  if (is.pane1 != was.pane1 || is.connectedIcon != was.connectedIcon)
    Line(std::string(is.connectedIcon ? "connected" : "not connected") + " = " +
         (is.pane1 == " " ? "a blank" : is.pane1));
  const CProgStatusBar bar = shown_.statusBar;
  shown_ = now;
  shown_.statusBar.position = bar.position;
  shown_.statusBar.progressVisible = bar.progressVisible;
}

// Numbers that rise by one are one token, from..to.
void Recorder::BarToken(const std::string& token) {
  const bool inBar = !lines_.empty() && lines_.back().starts_with("bar");
  const bool number = std::isdigit(static_cast<unsigned char>(token[0])) && token.find('-') == std::string::npos;
  if (number && inBar && lastOfRun_ >= 0 && std::stoi(token) == lastOfRun_ + 1) {
    lastOfRun_ = std::stoi(token);
    return;
  }
  Look();
  CloseRun();
  if (!lines_.empty() && lines_.back().starts_with("bar") && token.find('-') == std::string::npos) {
    lines_.back() += number ? "" : " " + token;
  } else {
    Line(number ? "bar" : "bar " + token);
  }
  if (number) firstOfRun_ = lastOfRun_ = std::stoi(token);
}

void Recorder::CloseRun() {
  if (firstOfRun_ >= 0) {
    lines_.back() += lastOfRun_ > firstOfRun_ + 1 ? Printf(" %d..%d", firstOfRun_, lastOfRun_)
                     : lastOfRun_ > firstOfRun_   ? Printf(" %d %d", firstOfRun_, lastOfRun_)
                                                  : Printf(" %d", firstOfRun_);
  }
  firstOfRun_ = lastOfRun_ = -1;
}

void Recorder::ProgressChanged() {
  const CProgStatusBar& is = TheMainControls().statusBar;
  CProgStatusBar& was = shown_.statusBar;
  if (is.pane0 != was.pane0) Line("status = " + is.pane0);
  was.pane0 = is.pane0;
  if (is.low != low_ || is.high != high_) {
    low_ = is.low;
    high_ = is.high;
    BarToken(Printf("%d-%d", low_, high_));
  } else if (!is.progressVisible && was.progressVisible) {
    BarToken("off");
  }
  if (is.progressVisible && (!was.progressVisible || is.position != was.position))
    BarToken(std::to_string(is.position));
  was.progressVisible = is.progressVisible;
  was.position = is.position;
}

void Recorder::HexViewChanged() {
  const auto& view = TheHexView();
  if (view.Blanked != hexBlank_ && view.Blanked) {
    Line("hex white");
  } else if (view.Blanked != hexBlank_ || view.editing.Data.size() != hexBytes_) {
    Line(Printf("hex %zu", view.editing.Data.size()));
  } else {
    Line("hex paint");
  }
  hexBytes_ = view.editing.Data.size();
  hexBlank_ = view.Blanked;
}

void Recorder::SnProgressChanged() {
  const auto& dialog = SnProgressDlg();
  const std::string now = !dialog ? "gone"
                                  : std::string(dialog->visible ? "shown" : "hidden") +
                                        (dialog->snProgramEnabled ? ", Program on" : ", Program off") +
                                        (dialog->snSetEnabled ? ", SET on" : ", SET off") + ", " + dialog->startText +
                                        " to " + dialog->endText;
  Line("S/N " + now);
}

bool Recorder::CreateSnProgress() {
  Line("S/N create");
  return snWindowsCome;
}

void Recorder::PumpPaint() {
  if (inFrame_) {
    ++paints_;
  } else if (paintDue_) {
    paintDue_ = false;
  } else {
    LookAtControls("paint");
    Line("paint");
  }
}

UsbHost::Handle Recorder::Open(const UsbDeviceEntry& device) {
  Line("usb open");
  return usb_.Open(device);
}

int Recorder::SetConfiguration(Handle handle, int configuration) {
  Line(Printf("usb configuration %d", configuration));
  return usb_.SetConfiguration(handle, configuration);
}

int Recorder::ClaimInterface(Handle handle, int interface) {
  Line(Printf("usb claim %d", interface));
  return usb_.ClaimInterface(handle, interface);
}

void Recorder::Close(Handle handle) {
  Line("usb close");
  usb_.Close(handle);
}

// A frame is one line, at the place where its command goes out. Sends let paints through around each transfer, which is
// part of the frame and no event of its own.
void Recorder::BeginFrame(const std::uint8_t* block, int count) {
  const bool sound = count == kBlock && std::equal(block, block + 8, "USBC\0\0\0\0");
  sends_ = sound && !FromWriter(block[12]);
  bool painted = !sends_;
  if (sends_ && !lines_.empty() && lines_.back() == "paint") {
    lines_.pop_back();
    painted = true;
  }
  wanted_ = sound ? block[8] | block[9] << 8 | static_cast<std::size_t>(block[10]) << 16 : 0;
  frameName_ = sound ? "usb " + NameOf(block[12]) : "usb no command block";
  if (!painted) frameName_ += " unpainted";
  frameData_.clear();
  paints_ = 0;
  transfers_ = 0;
  inFrame_ = true;
  Line(frameName_ + (sends_ ? "" : Printf(" %zu", wanted_)));
  frameLine_ = lines_.size() - 1;
}

void Recorder::EndFrame(bool good) {
  inFrame_ = false;
  std::string& line = lines_[frameLine_];
  if (sends_) {
    line = frameName_ + (frameData_.empty() ? "" : " " + Shown(frameData_));
    paintDue_ = good;
    if (good && paints_ != static_cast<int>(2 * transfers_) + 2) line += " unpainted";
  }
  if (good && frameData_.size() != wanted_) line += Printf(" of %zu", wanted_);
}

int Recorder::BulkWrite(Handle handle, int endpoint, const std::uint8_t* data, int count, int timeout) {
  const int result = usb_.BulkWrite(handle, endpoint, data, count, timeout);
  if (!inFrame_) {
    BeginFrame(data, count);
    if (result < 0) {
      lines_[frameLine_] += " failed";
      EndFrame(false);
      paintDue_ = true;
    }
    return result;
  }
  ++transfers_;
  frameData_.insert(frameData_.end(), data, data + count);
  if (count > kChunk || timeout != 0) frameName_ += " wrong transfer";
  return result;
}

int Recorder::BulkRead(Handle handle, int endpoint, std::uint8_t* data, int count, int timeout) {
  const int result = usb_.BulkRead(handle, endpoint, data, count, timeout);
  if (frameData_.size() >= wanted_ || (sends_ && count == kBlock)) {
    if (count != kBlock) frameName_ += " wrong status";
    EndFrame(result >= 0);
    if (result < 0) lines_[frameLine_] += " no status";
    return result;
  }
  Feed(frameName_.substr(4), {data, static_cast<std::size_t>(count)});
  frameData_.insert(frameData_.end(), data, data + count);
  return result;
}

void Recorder::Feed(const std::string& command, std::span<std::uint8_t> data) {
  Bytes& bytes = feed[command];
  const auto count = static_cast<std::ptrdiff_t>(std::min(data.size(), bytes.size()));
  std::copy_n(bytes.begin(), count, data.begin());
  bytes.erase(bytes.begin(), bytes.begin() + count);
}

int Recorder::VMOpen(int model, int a, int b) {
  const int result = vendor_.VMOpen(model, a, b);
  Line(Printf("api open %X %d %d", static_cast<unsigned>(model), a, b) + (result == 0 ? "" : " failed"));
  return result;
}

void Recorder::VMSetTimeout(int timeout) {
  Line(Printf("api timeout %d", timeout));
  vendor_.VMSetTimeout(timeout);
}

void Recorder::VMClose() {
  Line("api close");
  vendor_.VMClose();
}

int Recorder::VMWrite(std::uint8_t opcode, const std::uint8_t* data, std::uint32_t length) {
  Line("api " + NameOf(opcode) + (length == 0 ? "" : " " + Shown({data, length})));
  return vendor_.VMWrite(opcode, data, length);
}

int Recorder::VMRead(std::uint8_t opcode, std::uint8_t* buffer, std::uint32_t length) {
  Line("api " + NameOf(opcode) + Printf(" %u", length));
  const int result = vendor_.VMRead(opcode, buffer, length);
  Feed(NameOf(opcode), {buffer, length});
  return result;
}

std::int32_t Recorder::CallUpdateAgent(const char* request) {
  Line(std::string("update client ") + request);
  return updateResult;
}

}  // namespace pyxis::test
