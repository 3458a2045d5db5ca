// The list view: headings, deleting, selection; and how long it takes for 20,000 rows.
#include <QAbstractItemModelTester>
#include <QApplication>
#include <QElapsedTimer>
#include <QHeaderView>

#include <gtest/gtest.h>
#include <iostream>

#include "shell/fensterwelt.h"

namespace pelvanto::test {
namespace {

TEST(ListenAnsichtTest, HeadingsSortAndSelectedRowsAreDeleted) {
  Fensterwelt welt;
  welt.vereinAnlegen(9);
  welt.einstellungenAnlegen();
  ASSERT_TRUE(welt.starten());
  ListenAnsicht* liste = welt.liste("lvwListe1");
  const QAbstractItemModelTester pruefer(liste->model(),
                                         QAbstractItemModelTester::FailureReportingMode::Fatal);
  EXPECT_EQ(liste->model()->columnCount(), 0);
  welt.bisSeite(0);
  auto namen = [&] {
    QStringList namen;
    for (const QStringList& zeile : welt.zeilen("lvwListe1")) namen << zeile.front().right(1);
    return namen.join("");
  };
  auto waehlen = [&](std::initializer_list<int> zeilen) {
    liste->selectionModel()->clear();
    for (const int zeile : zeilen) {
      liste->selectionModel()->setCurrentIndex(liste->model()->index(zeile, 1),
                                               QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
  };
  EXPECT_EQ(namen(), QString("123456789"));
  EXPECT_FALSE(liste->header()->isSortIndicatorShown());
  waehlen({1, 7});
  emit liste->header()->sectionClicked(1);
  EXPECT_EQ(namen(), QString("123456789"));
  EXPECT_EQ(liste->header()->sortIndicatorOrder(), Qt::AscendingOrder);
  emit liste->header()->sectionClicked(1);
  EXPECT_EQ(namen(), QString("987654321"));
  EXPECT_TRUE(liste->header()->isSortIndicatorShown());
  EXPECT_EQ(liste->header()->sortIndicatorOrder(), Qt::DescendingOrder);
  // The same persons are still selected.
  emit liste->loeschenGewuenscht();
  EXPECT_EQ(namen(), QString("9765431"));
  EXPECT_EQ(welt.text("lblErgebnis1"), QString("7"));
  waehlen({0, 1, 2});
  emit liste->loeschenGewuenscht();
  EXPECT_EQ(namen(), QString("5431"));
  EXPECT_EQ(welt.text("lblErgebnis1Geloescht"), QString("5"));
  // A new run keeps order and counter.
  welt.druecken("cmdErgebnisZeigen1");
  EXPECT_EQ(namen(), QString("987654321"));
  EXPECT_EQ(welt.text("lblErgebnis1Geloescht"), QString("5"));
}

TEST(ListenAnsichtTest, NothingIsDeletedWithoutSelectionOrInTheLastSteps) {
  Fensterwelt welt;
  welt.vereinAnlegen(3);
  welt.einstellungenAnlegen();
  ASSERT_TRUE(welt.starten());
  emit welt.liste("lvwListe1")->loeschenGewuenscht();
  EXPECT_FALSE(welt.finden<QLabel>("lblErgebnis1Geloescht")->isVisible());
  welt.bisSeite(4);
  welt.liste("lvwListe4")->selectAll();
  emit welt.liste("lvwListe4")->loeschenGewuenscht();
  EXPECT_EQ(welt.zeilen("lvwListe4").size(), 3U);
  EXPECT_TRUE(welt.liste("lvwListe4")->toolTip().endsWith(" Doppelklick öffnet Brannwik-Verbindo."));
  EXPECT_TRUE(welt.liste("lvwListe1")->toolTip().endsWith("wie angezeigt."));
}

TEST(ListenAnsichtTest, TwentyThousandRowsAreQuick) {
  static constexpr int kZeilen = 20000;
  static constexpr int kGrenze = 500;  // ms
  Liste liste{{"Name", "Adresse", "Telefon"}};
  ListenAnsicht ansicht(liste, nullptr);
  QObject::connect(&ansicht, &ListenAnsicht::spalteAngeklickt, [&](int spalte) {
    ansicht.eintragen();
    liste.spalteAngeklickt(spalte);
    ansicht.zeigen();
  });
  QObject::connect(&ansicht, &ListenAnsicht::loeschenGewuenscht, [&] {
    ansicht.eintragen();
    liste.MarkierteLoeschen();
    ansicht.zeigen();
  });
  ansicht.resize(605, 329);
  ansicht.show();
  auto messen = [](const char* was, const auto& handlung) {
    QElapsedTimer uhr;
    uhr.start();
    handlung();
    QApplication::processEvents();
    std::cout << "20,000 rows: " << was << " " << uhr.elapsed() << " ms\n";
    // Sanitizers slow everything down several times.
#if defined(__SANITIZE_ADDRESS__)
    EXPECT_LT(uhr.elapsed(), 10 * kGrenze) << was;
#else
    EXPECT_LT(uhr.elapsed(), kGrenze) << was;
#endif
  };
  messen("filling", [&] {
    liste.spaltenSetzen({{"ID", "ID", 0},
                         {"Name", "Name", 2600},
                         {"Adresse", "Adresse", 2600},
                         {"Telefon", "Telefon", 3000}});
    std::vector<Zeile> zeilen;
    for (int i = 0; i < kZeilen; ++i) {
      const int gemischt = (i * 7919) % kZeilen;
      zeilen.push_back({zeilenschluessel(i + 1),
                        {QString("Müller %1").arg(gemischt), QString("40%1 Linz").arg(i % 97), "0732/1234"}});
    }
    liste.hinzufuegen(std::move(zeilen));
    ansicht.zeigen();
  });
  ASSERT_EQ(ansicht.model()->rowCount(), kZeilen);
  messen("sorting", [&] { emit ansicht.spalteAngeklickt(1); });
  messen("sorting the other way", [&] { emit ansicht.spalteAngeklickt(1); });
  messen("sorting with every second row selected", [&] {
    for (int i = 0; i < kZeilen; i += 2) liste.markieren(i, true);
    liste.spalteAngeklickt(2);
    ansicht.zeigen();
  });
  messen("deleting all", [&] {
    ansicht.selectAll();
    emit ansicht.loeschenGewuenscht();
  });
  EXPECT_EQ(ansicht.model()->rowCount(), 0);
}

}  // namespace
}  // namespace pelvanto::test
