// What the logic asks of the operator: message boxes, questions, the file dialog, modal dialogs, the busy cursor.
// The window program shows them, the headless runner answers by its switches, tests answer by a script.
#pragma once

#include <optional>
#include <string>

namespace pyxis {

enum class MessageIcon { None, Question, Warning, Stop };

// Captions in use: kMessageCaption for results, refusals and hardware errors; kPlainCaption for plain message boxes;
// kBlankCaption for the questions whose title is one blank.
inline constexpr char kMessageCaption[] = "Message";
inline constexpr char kPlainCaption[] = "PyxisLoad";
inline constexpr char kBlankCaption[] = " ";

enum class DialogEnd { Cancel, Ok };

class CIcSelectDlg;
class COptionSelectDlg;
class CSnSetDlg;
class CSnProgramDlg;
class CReadChipInfoDlg;
class CDownloadInfoDlg;
class CSmartOptionDlg;
class CGotoAddressDlg;

// The file open dialog. Each kind opens where its last file lay, and first in its folder, or in the current one when it
// names none. `filter` is pairs of caption and pattern, separated and ended by "|" ("A (*.a)|*.a||").
enum class FileKind { Program, Firmware, Comparison };
struct FileQuestion {
  FileKind kind;
  std::string filter;
  std::string folder = {};
};

// A cursor; 0 is none.
using CursorHandle = int;

class Operator {
 public:
  virtual ~Operator() = default;

  // A message box with the one button OK; returns when the operator has read it.
  virtual void Tell(const std::string& text, const std::string& caption = kMessageCaption,
                    MessageIcon icon = MessageIcon::None) = 0;
  // A message box with Yes and No; true is Yes.
  virtual bool Ask(const std::string& text, const std::string& caption, MessageIcon icon) = 0;

  // The full path, or nothing when the operator cancels.
  virtual std::optional<std::string> ChooseFile(const FileQuestion& question) = 0;

  // Modal dialogs. The caller has made and initialised the dialog's logic object; the window mirrors it until the
  // object says that it has ended. An operator that has no such window cancels.
  virtual DialogEnd RunDialog(CIcSelectDlg&) { return DialogEnd::Cancel; }
  virtual DialogEnd RunDialog(COptionSelectDlg&) { return DialogEnd::Cancel; }
  virtual DialogEnd RunDialog(CSnSetDlg&) { return DialogEnd::Cancel; }
  virtual DialogEnd RunDialog(CSnProgramDlg&) { return DialogEnd::Cancel; }
  virtual DialogEnd RunDialog(CReadChipInfoDlg&) { return DialogEnd::Cancel; }
  virtual DialogEnd RunDialog(CDownloadInfoDlg&) { return DialogEnd::Cancel; }
  virtual DialogEnd RunDialog(CSmartOptionDlg&) { return DialogEnd::Cancel; }
  virtual DialogEnd RunDialog(CGotoAddressDlg&) { return DialogEnd::Cancel; }
  virtual void RunAbout() {}

  // Loads an animated cursor from a file; 0 when that fails.
  virtual CursorHandle LoadCursorFromFile(const std::string& /*path*/) { return 0; }
  // Makes it the cursor and returns the one in force before.
  virtual CursorHandle SetCursor(CursorHandle) { return 0; }
  // A sound that says that something has failed.
  virtual void Alarm() {}
};

}  // namespace pyxis
