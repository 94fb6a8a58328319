// The main window's controls as plain data, and the few operations that rooms below the shell call on them. The window
// mirrors this record; nothing reads a window back.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>

#include "shell/ground/verdict_line.h"

namespace pyxis {

enum class ControlId {
  Auto,
  BlankCheck,
  Program,
  Verify,
  Read,
  WriterTest,
  SmartOption,
  FileField,
  ChipNameField,
  BufferArea,
  ChecksumField,
  HexView,
  Protect,
  Unprotect,
  FastMode,
  DualMode,
  Clock32kDisable,
  Clock32kEnable,
  ExhvIspLabel,
  IspLabel,
  MassProductionLabel,
  ProductionLimitLabel,
  Count
};

struct ControlState {
  bool enabled = true;
  bool visible = true;
  bool checked = false;
  std::string text;
  bool operator==(const ControlState&) const = default;
};

// The status bar: a progress control that lies over pane 0, and pane 1 with the link status.
struct CProgStatusBar {
  int low = 0, high = 100, position = 0;
  bool progressVisible = false;
  std::string pane0, pane1;
  bool connectedIcon = false;
  std::string missingRight;  // why the writer can't be opened, for the operator; empty when the right isn't missing
  bool operator==(const CProgStatusBar&) const = default;
};

struct MainControls {
  std::array<ControlState, static_cast<std::size_t>(ControlId::Count)> controls;
  CProgStatusBar statusBar;
  std::string title = "PyxisLoad";
  VerdictLine verdict;
  std::optional<ControlId> focus;  // that is to have the focus when the operation has ended
  std::string pinFigure;           // path of the bitmap that the picture shows; empty when it shows none

  MainControls();
  ControlState& operator[](ControlId id) { return controls[static_cast<std::size_t>(id)]; }
  bool operator==(const MainControls&) const = default;
  const ControlState& operator[](ControlId id) const { return controls[static_cast<std::size_t>(id)]; }
};

MainControls& TheMainControls();
void ResetMainControls();

// The buttons of the four tasks, and those of them that a production mode greys.
inline constexpr std::array kTasks{ControlId::Auto, ControlId::BlankCheck, ControlId::Program, ControlId::Verify};
inline constexpr std::array kSingleTasks{ControlId::BlankCheck, ControlId::Program, ControlId::Verify};

// Changes that tell the view.
void EnableControl(ControlId id, bool enabled);
void EnableControls(std::span<const ControlId> ids, bool enabled);
void ShowControl(ControlId id, bool visible);
void SetControlText(ControlId id, const std::string& text);
// `ChecksumText` and its field: ImageChecksum in four digits; empty where no job is known.
void ShowChecksum();
void ClearChecksum();
void CheckControl(ControlId id, bool checked);
void FocusControl(ControlId id);

// The range starts at position 0 with the bar hidden. A position other than 0 shows the bar, 0 hides it; whenever the
// visibility changes, pane 0 is cleared first. A position beyond the range shows as the nearer end.
void SetProgressRange(int low, int high);
void SetProgressPosition(int position);
void SetStatusText(const std::string& text);  // pane 0
void ClearStatusText();

// Around a run: grey Auto, Blank check, Program, Verify, Read and Smart Option, and bring back those that the modes
// allow.
void DisableOperations();
void EnableOperations();
class OperationsOff {
 public:
  OperationsOff() { DisableOperations(); }
  ~OperationsOff() { EnableOperations(); }
  OperationsOff(const OperationsOff&) = delete;
  OperationsOff& operator=(const OperationsOff&) = delete;
};

// Lets queued paints through and nothing else.
void PumpPaint();

}  // namespace pyxis
