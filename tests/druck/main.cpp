#include <QApplication>

#include <gtest/gtest.h>

#include "druck/druckserver.h"

int main(int argc, char* argv[]) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  const QApplication programm(argc, argv);
  pelvanto::test::Druckserver::einziger();
  return RUN_ALL_TESTS();
}
