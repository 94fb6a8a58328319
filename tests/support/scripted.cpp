#include "support/scripted.h"

namespace pyxis::test {

std::vector<std::string> ScriptedOperator::Heard() {
  std::vector<std::string> texts;
  for (const Told& t : Boxes()) texts.push_back(t.text);
  return texts;
}

void ScriptedOperator::Tell(const std::string& text, const std::string& caption, MessageIcon icon) {
  told.push_back({text, caption, icon});
}

bool ScriptedOperator::Ask(const std::string& text, const std::string& caption, MessageIcon icon) {
  told.push_back({text, caption, icon});
  if (answers.empty()) return false;
  const bool answer = answers.front();
  answers.pop_front();
  return answer;
}

std::optional<std::string> ScriptedOperator::ChooseFile(const std::string& filter) {
  filters.push_back(filter);
  if (files.empty()) return std::nullopt;
  auto file = files.front();
  files.pop_front();
  return file;
}

CursorHandle ScriptedOperator::LoadCursorFromFile(const std::string& path) {
  cursors.push_back(path);
  return cursorsLoad ? static_cast<CursorHandle>(cursors.size()) + 1 : 0;
}

CursorHandle ScriptedOperator::SetCursor(CursorHandle handle) {
  const CursorHandle before = cursor;
  cursor = handle;
  return before;
}

}  // namespace pyxis::test
