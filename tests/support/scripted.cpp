#include "support/scripted.h"

namespace pyxis::test {

std::vector<std::string> ScriptedOperator::Heard() {
  std::vector<std::string> texts;
  for (const Told& t : Boxes()) texts.push_back(t.text);
  return texts;
}

namespace {

std::string BoxOf(const Told& t) {
  constexpr const char* kIcons[] = {"", ", question", ", warning", ", stop"};
  return "[" + t.caption + kIcons[static_cast<int>(t.icon)] + "] " + t.text;
}

}  // namespace

void ScriptedOperator::Tell(const std::string& text, const std::string& caption, MessageIcon icon) {
  told.push_back({text, caption, icon});
  heard("box " + BoxOf(told.back()));
}

bool ScriptedOperator::Ask(const std::string& text, const std::string& caption, MessageIcon icon) {
  told.push_back({text, caption, icon});
  const bool answer = !answers.empty() && answers.front();
  if (!answers.empty()) answers.pop_front();
  heard("ask " + BoxOf(told.back()) + (answer ? ": Yes" : ": No"));
  return answer;
}

std::optional<std::string> ScriptedOperator::ChooseFile(const FileQuestion& question) {
  filters.push_back(question.filter);
  folders.push_back(question.folder);
  auto file = files.empty() ? std::nullopt : files.front();
  if (!files.empty()) files.pop_front();
  heard("choose " + question.filter + (file ? ": " + *file : ": Cancel"));
  return file;
}

CursorHandle ScriptedOperator::LoadCursorFromFile(const std::string& path) {
  cursors.push_back(path);
  heard((cursorsLoad ? "load cursor " : "no cursor ") + path);
  return cursorsLoad ? static_cast<CursorHandle>(cursors.size()) + 1 : 0;
}

CursorHandle ScriptedOperator::SetCursor(CursorHandle handle) {
  heard(handle == 1 ? "cursor arrow" : "cursor busy");
  return std::exchange(cursor, handle);
}

}  // namespace pyxis::test
