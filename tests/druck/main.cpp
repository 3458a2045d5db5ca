#include <QApplication>

#include <gtest/gtest.h>

#include "druck/druckserver.h"

int main(int argc, char* argv[]) {
#ifndef Q_OS_WIN  // there only the desktop's own is linked in
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
  testing::InitGoogleTest(&argc, argv);
  const QApplication programm(argc, argv);
  pelvanto::test::Druckserver::einziger();
  return RUN_ALL_TESTS();
}
