#pragma once

#include <gtest/gtest.h>

#include "common/druckwelt.h"
#include "druck/druckserver.h"
#include "seams/real/echter_drucker.h"

namespace pelvanto::test {

// The printing functions on the default queue of the suite's own print server.
class Druckserverwelt : public testing::Test {
 protected:
  void SetUp() override {
    if (!Druckserver::vorhanden()) GTEST_SKIP() << "CUPS is not installed";
    ASSERT_EQ(server.starten(), QString());
  }
  ~Druckserverwelt() override { server.beenden(); }

  Druckserver& server = Druckserver::einziger();
  EchterDrucker drucker;
  Druckwelt welt{drucker};
};

}  // namespace pelvanto::test
