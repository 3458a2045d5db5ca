// Whole payouts on the page models: every list, counter and sum, and the transfer table, as expected.
#include "common/golden.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "common/testprogramm.h"
#include "steps/schritte.h"

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

// Numbers and amounts of the lists, without the user's format.
QString schlicht(QString text) {
  text.remove(u'.').remove(u" €"_s);
  return text.replace(u',', u'.');
}

class GoldenTest : public testing::TestWithParam<test::Goldfall> {
 protected:
  GoldenTest() {
    const test::Goldfall& fall = GetParam();
    QTemporaryDir ordner;
    const std::filesystem::path pfad = std::filesystem::path(ordner.path().toStdU16String()) / "Verbindo.mdb";
    fall.datenbankAnlegen(pfad);
    QFile datei(QString::fromStdU16String(pfad.u16string()));
    EXPECT_TRUE(datei.open(QIODevice::ReadOnly));
    programm.dateien.anlegen(programm.werte.DatenbankPfad, datei.readAll());
    programm.uhr.stellen(QDateTime(QDate(fall.wert(u"Jahr"_s).toInt(), 1, 5), QTime(0, 0, 7)));
    seiten.seite1.txtUnterlieferungGruppe.text = fall.wert(u"UnterlieferungGruppe"_s);
    seiten.seite2.txtEinzahlungen.text = fall.wert(u"Einzahlungen"_s);
    seiten.seite3.txtGruppeNotwendig.text = fall.wert(u"GruppeNotwendig"_s);
    seiten.seite3b.txtGruppeNotwendig3b.text = fall.wert(u"GruppeNotwendig3b"_s);
    seiten.seite4.txtGesamtbetrag.text = fall.wert(u"GesamtBetrag"_s);
    seiten.seite5.txtWortlautUeberweisung.text = fall.wert(u"WortlautUeberweisung"_s);
  }

  // The list in the form of the expected rows; the columns from `abZahl` on are numbers.
  static std::vector<QStringList> zeilen(const Liste& liste, int abZahl = 99) {
    std::vector<QStringList> zeilen;
    for (const Zeile& zeile : liste.zeilen()) {
      QStringList felder{QString::number(zeile.id())};
      for (int i = 0; i < zeile.texte.size(); ++i) {
        felder << (i < abZahl ? zeile.texte[i] : schlicht(zeile.texte[i]));
      }
      zeilen.push_back(felder);
    }
    return zeilen;
  }
  void vergleichen(const QString& titel, const std::vector<QStringList>& zeilen) {
    const test::GoldAbschnitt* abschnitt = GetParam().abschnitt(titel);
    if (!abschnitt) return;
    ++verglichen;
    SCOPED_TRACE(titel.toStdString());
    ASSERT_EQ(zeilen.size(), abschnitt->zeilen.size());
    for (std::size_t i = 0; i < zeilen.size(); ++i) {
      ASSERT_EQ(zeilen[i].join(u'|').toStdString(), abschnitt->zeilen[i].join(u'|').toStdString())
          << "row " << i;
    }
  }
  void werteVergleichen(const QString& titel, const std::map<QString, QString>& werte) {
    const test::GoldAbschnitt* abschnitt = GetParam().abschnitt(titel);
    if (!abschnitt) return;
    ++verglichen;
    for (const auto& [name, erwartet] : abschnitt->werte) {
      ASSERT_TRUE(werte.contains(name)) << name.toStdString();
      EXPECT_EQ(schlicht(werte.at(name)).toStdString(), erwartet.toStdString()) << name.toStdString();
    }
  }

  test::Testprogramm programm;
  Umgebung umgebung{{programm.uhr, programm.meldungen, programm.oberflaeche, programm.gebietsschema,
                     programm.dateien, programm.jet},
                    programm.werte};
  Seiten seiten;
  int verglichen = 0;
};

std::vector<QStringList> tabellenzeilen(const UeberweisungT& tabelle) {
  std::vector<QStringList> zeilen;
  for (const Ueberweisung& u : tabelle) {
    EXPECT_EQ(u.EinzelBetrag.zehntausendstel() % 100, 0) << "whole cents";
    const QString cent = QString::number(u.EinzelBetrag.zehntausendstel() / 100).rightJustified(3, u'0');
    zeilen.push_back({u.KundeIBAN, u.KundeBIC, cent.chopped(2) + u'.' + cent.right(2), u.KundenID,
                      u.KundeName, u.KundeAdresse, u.Verwendungszweck, u.AuftraggeberReferenz});
  }
  return zeilen;
}

TEST_P(GoldenTest, EveryListAndSumIsAsExpected) {
  const Seite4& vier = seiten.seite4;
  const Seite5& fuenf = seiten.seite5;
  cmdErgebnisZeigen1_Click(umgebung, seiten);
  vergleichen(u"Schritt 1: Liste"_s, zeilen(seiten.seite1.lvwListe1));
  if (seiten.seite1.cmdWeiter1.ein) cmdErgebnisZeigen2_Click(umgebung, seiten);
  vergleichen(u"Schritt 2: Liste"_s, zeilen(seiten.seite2.lvwListe2));
  vergleichen(u"Schritt 2: ausgeschieden"_s, zeilen(seiten.seite2.lvwListeAusgeschieden2));
  if (seiten.seite2.cmdWeiter2.ein) {
    cmdErgebnisZeigen3_Click(umgebung, seiten);
    cmdErgebnisZeigen3b_Click(umgebung, seiten);
    cmdErgebnisZeigen4_Click(umgebung, seiten);
    cmdErgebnisZeigen5_Click(umgebung, seiten);
  }
  vergleichen(u"Schritt 3a: Liste"_s, zeilen(seiten.seite3.lvwListe3));
  vergleichen(u"Schritt 3a: ausgeschieden"_s, zeilen(seiten.seite3.lvwListeAusgeschieden3));
  vergleichen(u"Schritt 3b: Liste"_s, zeilen(seiten.seite3b.lvwListe3b));
  vergleichen(u"Schritt 3b: ausgeschieden"_s, zeilen(seiten.seite3b.lvwListeAusgeschieden3b));
  vergleichen(u"Schritt 4: Liste"_s, zeilen(vier.lvwListe4, 2));
  vergleichen(u"Schritt 4: ausgeschieden"_s, zeilen(vier.lvwAusgeschieden4));
  werteVergleichen(u"Schritt 4: Summen"_s, {{u"lblMengeFuerBerechnung"_s, vier.lblMengeFuerBerechnung.text},
                                            {u"lblMengeGesamt"_s, vier.lblMengeGesamt.text},
                                            {u"lblErgebnis4"_s, vier.lblErgebnis4.text},
                                            {u"lblErgebnis4Ueber50000"_s, vier.lblErgebnis4Ueber50000.text},
                                            {u"lblAusgeschieden4"_s, vier.lblAusgeschieden4.text},
                                            {u"lblPreisProKilo"_s, vier.lblPreisProKilo.text},
                                            {u"lblVerteilt"_s, vier.lblVerteilt.text}});
  vergleichen(u"Schritt 5: Liste"_s, zeilen(fuenf.lvwListe5, 4));
  vergleichen(u"Schritt 5: ausgeschieden"_s, zeilen(fuenf.lvwAusgeschieden5));
  werteVergleichen(u"Schritt 5: Summen"_s, {{u"lblErgebnis5"_s, fuenf.lblErgebnis5.text},
                                            {u"lblAusgeschieden5"_s, fuenf.lblAusgeschieden5.text},
                                            {u"lbl10Netto"_s, fuenf.lbl10Netto.text},
                                            {u"lbl10Steuer"_s, fuenf.lbl10Steuer.text},
                                            {u"lbl10Brutto"_s, fuenf.lbl10Brutto.text},
                                            {u"lbl12Netto"_s, fuenf.lbl12Netto.text},
                                            {u"lbl12Steuer"_s, fuenf.lbl12Steuer.text},
                                            {u"lbl12Brutto"_s, fuenf.lbl12Brutto.text},
                                            {u"lblAlleNetto"_s, fuenf.lblAlleNetto.text},
                                            {u"lblAlleSteuer"_s, fuenf.lblAlleSteuer.text},
                                            {u"lblAlleBrutto"_s, fuenf.lblAlleBrutto.text}});
  vergleichen(u"UeberweisungT"_s, tabellenzeilen(seiten.ueberweisungT.value_or(UeberweisungT{})));
  EXPECT_EQ(programm.meldungen.texte(), GetParam().meldungen);
  EXPECT_TRUE(verglichen > 0 || !GetParam().meldungen.isEmpty());
  EXPECT_FALSE(programm.oberflaeche.sanduhrAn);
}

INSTANTIATE_TEST_SUITE_P(Auszahlungen, GoldenTest, testing::ValuesIn(test::goldfaelle(PELVANTO_SOURCE_DIR)),
                         [](const auto& fall) { return test::testname(fall.param); });

}  // namespace
}  // namespace pelvanto
