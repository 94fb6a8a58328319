// The verdict line: the last verdict in large words on green or red, and the counts behind it.
#pragma once

#include <QWidget>

class QLabel;

namespace pyxis::ui {

class VerdictLabel : public QWidget {
 public:
  explicit VerdictLabel(QWidget* parent);
  void Sync();

 private:
  QLabel *words_, *counts_;
};

}  // namespace pyxis::ui
