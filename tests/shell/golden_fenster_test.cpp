// Whole payouts through the window's own buttons: what its lists and labels show, and the payment file.
#include <QFile>

#include <gtest/gtest.h>

#include "common/golden.h"
#include "shell/fensterwelt.h"
#include "support/windows1252.h"

namespace pelvanto::test {
namespace {

// Lists with the place of their first number.
struct Tabelle {
  const char* titel;
  const char* liste;
  int abZahl;
};
constexpr Tabelle kTabellen[] = {
    {"Schritt 1: Liste", "lvwListe1", 99},
    {"Schritt 2: Liste", "lvwListe2", 99},
    {"Schritt 2: ausgeschieden", "lvwListeAusgeschieden2", 99},
    {"Schritt 3a: Liste", "lvwListe3", 99},
    {"Schritt 3a: ausgeschieden", "lvwListeAusgeschieden3", 99},
    {"Schritt 3b: Liste", "lvwListe3b", 99},
    {"Schritt 3b: ausgeschieden", "lvwListeAusgeschieden3b", 99},
    {"Schritt 4: Liste", "lvwListe4", 3},
    {"Schritt 4: ausgeschieden", "lvwAusgeschieden4", 99},
    {"Schritt 5: Liste", "lvwListe5", 5},
    {"Schritt 5: ausgeschieden", "lvwAusgeschieden5", 99},
};

const Liste& modell(const Seiten& s, const QString& name) {
  const std::pair<const char*, const Liste&> listen[] = {
      {"lvwListe1", s.seite1.lvwListe1},
      {"lvwListe2", s.seite2.lvwListe2},
      {"lvwListeAusgeschieden2", s.seite2.lvwListeAusgeschieden2},
      {"lvwListe3", s.seite3.lvwListe3},
      {"lvwListeAusgeschieden3", s.seite3.lvwListeAusgeschieden3},
      {"lvwListe3b", s.seite3b.lvwListe3b},
      {"lvwListeAusgeschieden3b", s.seite3b.lvwListeAusgeschieden3b},
      {"lvwListe4", s.seite4.lvwListe4},
      {"lvwAusgeschieden4", s.seite4.lvwAusgeschieden4},
      {"lvwListe5", s.seite5.lvwListe5},
      {"lvwAusgeschieden5", s.seite5.lvwAusgeschieden5},
  };
  for (const auto& [schluessel, liste] : listen) {
    if (name == schluessel) return liste;
  }
  throw std::runtime_error("no list " + name.toStdString());
}

class GoldenFensterTest : public testing::TestWithParam<Goldfall> {
 protected:
  GoldenFensterTest() {
    const Goldfall& fall = GetParam();
    fall.datenbankAnlegen(std::filesystem::path(welt.pfad("Verbindo.mdb").toStdU16String()));
    QString ini = "[Auszahlungen]\r\n";
    for (const char* schluessel :
         {"UnterlieferungGruppe", "Einzahlungen", "GruppeNotwendig", "GruppeNotwendig3b", "GesamtBetrag",
          "EigeneIBAN", "EigeneBIC", "WortlautUeberweisung"})
      ini += QString("%1=%2\r\n").arg(schluessel, fall.wert(schluessel));
    welt.schreiben("verbindo.ini", nachWindows1252(ini));
    const QDateTime erstellt = QDateTime::fromString(fall.wert("Erstellt"), Qt::ISODate);
    const int jahr = fall.wert("Jahr").toInt();
    welt.uhr.stellen(erstellt.date().year() == jahr ? erstellt
                                                    : QDateTime(QDate(jahr, 1, 5), QTime(0, 0, 7)));
    // The numbers before the expected one are taken.
    const QString meldung = fall.wert("Meldung");
    for (int nummer = 1; nummer < meldung.right(3).toInt(); ++nummer)
      welt.schreiben(QString("%1%2.xml").arg(meldung.chopped(3)).arg(nummer, 3, 10, QChar(u'0')), "belegt");
  }

  void tabellenVergleichen(const Seiten& seiten) {
    for (const Tabelle& tabelle : kTabellen) {
      const GoldAbschnitt* abschnitt = GetParam().abschnitt(tabelle.titel);
      if (!abschnitt) continue;
      SCOPED_TRACE(tabelle.titel);
      const std::vector<QStringList> zeilen = welt.zeilen(tabelle.liste, tabelle.abZahl);
      const Liste& liste = modell(seiten, tabelle.liste);
      ASSERT_EQ(zeilen.size(), abschnitt->zeilen.size());
      ASSERT_EQ(zeilen.size(), liste.zeilen().size());
      for (std::size_t i = 0; i < zeilen.size(); ++i) {
        const QStringList gezeigt = QStringList(QString::number(liste.zeilen()[i].id())) + zeilen[i];
        ASSERT_EQ(gezeigt.join(u'|'), abschnitt->zeilen[i].join(u'|')) << "row " << i;
      }
    }
  }
  void werteVergleichen(const char* titel) {
    const GoldAbschnitt* abschnitt = GetParam().abschnitt(titel);
    if (!abschnitt) return;
    for (const auto& [name, erwartet] : abschnitt->werte)
      EXPECT_EQ(schlicht(welt.text(name)), erwartet) << name.toStdString();
  }
  void ueberweisungenVergleichen(const Seiten& seiten) {
    const GoldAbschnitt* abschnitt = GetParam().abschnitt("UeberweisungT");
    if (!abschnitt) return;
    const UeberweisungT tabelle = seiten.ueberweisungT.value_or(UeberweisungT{});
    ASSERT_EQ(tabelle.size(), abschnitt->zeilen.size());
    for (std::size_t i = 0; i < tabelle.size(); ++i) {
      const Ueberweisung& u = tabelle[i];
      const QString cent = QString::number(u.EinzelBetrag.zehntausendstel() / 100).rightJustified(3, u'0');
      const QStringList zeile{u.KundeIBAN,
                              u.KundeBIC,
                              cent.chopped(2) + u'.' + cent.right(2),
                              u.KundenID,
                              u.KundeName,
                              u.KundeAdresse,
                              u.Verwendungszweck,
                              u.AuftraggeberReferenz};
      ASSERT_EQ(zeile.join(u'|'), abschnitt->zeilen[i].join(u'|')) << "row " << i;
    }
  }

  Fensterwelt welt;
};

TEST_P(GoldenFensterTest, TheWindowShowsAndPaysWhatIsExpected) {
  const Goldfall& fall = GetParam();
  ASSERT_TRUE(welt.starten());
  for (const char* schritt : {"1", "2", "3", "3b", "4"}) {
    ASSERT_TRUE(welt.druecken(QString("cmdErgebnisZeigen") + schritt));
    if (!welt.druecken(QString("cmdWeiter") + schritt)) break;
  }
  const bool amEnde = welt.fenster->aktuelleSeite() == 5;
  if (amEnde) {
    ASSERT_TRUE(welt.druecken("cmdErgebnisZeigen5"));
  }
  const Seiten& seiten = welt.fenster->seiten();
  tabellenVergleichen(seiten);
  werteVergleichen("Schritt 4: Summen");
  werteVergleichen("Schritt 5: Summen");
  ueberweisungenVergleichen(seiten);
  EXPECT_EQ(welt.meldungen.texte(), fall.meldungen);

  const QString datei = fall.wert("Meldung") + ".xml";
  const bool geschrieben = amEnde && welt.druecken("cmdDatentraegerErstellen");
  EXPECT_EQ(geschrieben, fall.datei.has_value());
  if (fall.datei) {
    ASSERT_TRUE(welt.namen().contains(datei));
    EXPECT_EQ(welt.lesen(datei), *fall.datei);
    EXPECT_FALSE(welt.druecken("cmdDatentraegerErstellen")) << "a second file needs step 5 again";
  } else {
    EXPECT_FALSE(welt.namen().contains(datei));
  }
  EXPECT_FALSE(welt.oberflaeche.sanduhrAn);
}

INSTANTIATE_TEST_SUITE_P(Auszahlungen, GoldenFensterTest, testing::ValuesIn(goldfaelle(PELVANTO_SOURCE_DIR)),
                         [](const auto& fall) { return testname(fall.param); });

}  // namespace
}  // namespace pelvanto::test
