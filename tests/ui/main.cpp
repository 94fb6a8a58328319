// The window tests run offscreen unless a platform is named.
#include <gtest/gtest.h>

#include <QApplication>
#include <QIcon>

#include "ui/readable_style.h"

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  QApplication::setStyle(new pyxis::ui::ReadableStyle(QStringLiteral("Fusion")));
  QApplication::setWindowIcon(QIcon(QStringLiteral(PYXIS_BIN_DIR "/../icons/64x64/apps/pyxisload.png")));
  return RUN_ALL_TESTS();
}
