#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char* argv[]) {
#ifndef Q_OS_WIN  // there only the desktop's own is linked in
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
  testing::InitGoogleTest(&argc, argv);
  QApplication::setStyle("fusion");
  const QApplication programm(argc, argv);
  return RUN_ALL_TESTS();
}
