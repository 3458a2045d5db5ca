#include "payment/kontrollliste.h"

#include <functional>
#include <gtest/gtest.h>
#include <tuple>

#include "common/ausgabe.h"
#include "common/fake_drucker.h"
#include "payment/zahlungswelt.h"

namespace pelvanto::test {
namespace {

const QString kPfad = "/prog/UE26001.xml";
const QString kTitel = "Überweisung-Datei          " + kPfad;
const Meldung kFrage{
    "Die Datei /prog/UE26001.xml wurde erstellt. Soll eine Liste über alle Überweisungen in "
    "dieser Datei erstellt werden?",
    Symbol::Frage, Knoepfe::JaNein};
constexpr Druckschrift kSchrift{9};

struct Kontrollwelt : Zahlungswelt {
  FakeDrucker drucker;
  FunktionenDrucker druck{drucker, uhr, werte};
  Kontrollliste kontrollliste{druck, meldungen, protokoll, typen};

  void anbieten(const UeberweisungT& tabelle) {
    kontrollliste.anbieten(kPfad, tabelle, "AT611904300234573201", " MUSTAT2L");
  }
  // Answers Yes.
  const Gedrucktes& drucken(const UeberweisungT& tabelle) {
    meldungen.antworten = {Antwort::Ja};
    anbieten(tabelle);
    return drucker.dokumente.back();
  }
};

// The texts of a page that stand at `x`, with their heights.
std::vector<std::pair<double, QString>> spalte(const Druckseite& seite, double x) {
  std::vector<std::pair<double, QString>> texte;
  for (const Textstelle& stelle : seite.texte) {
    if (stelle.x == x && stelle.y > 21 && stelle.y < 190) texte.emplace_back(stelle.y, stelle.text);
  }
  return texte;
}

// The only text of a page that ends in "Zeilen", and what stands at its height beside it.
QString summenzeile(const Druckseite& seite) {
  QStringList texte;
  double hoehe = 0;
  for (const Textstelle& stelle : seite.texte) {
    if (stelle.text.endsWith(" Zeilen")) hoehe = stelle.y;
  }
  for (const Textstelle& stelle : seite.texte) {
    if (stelle.y == hoehe) texte << stelle.text;
  }
  return QString("%1: ").arg(hoehe) + texte.join(u'|');
}

TEST(KontrolllisteTest, OneTransferAndTheFrame) {
  Kontrollwelt welt;
  Ueberweisung deutsch = ueberweisung(123450, "Hof & Söhne");
  deutsch.KundeIBAN = "DE89370400440532013000";
  const Gedrucktes& gedruckt = welt.drucken({deutsch});
  EXPECT_EQ(welt.meldungen.gezeigt, std::vector<Meldung>({kFrage}));
  EXPECT_EQ(gedruckt.name, kTitel);
  EXPECT_TRUE(gedruckt.beendet);
  ASSERT_EQ(gedruckt.seiten.size(), 1U);

  const double rechts = 180 - FakeDrucker::breite("1.234,50 €", kSchrift);
  const std::tuple<double, double, QString> erwartet[] = {
      {20, 24, "Hof & Söhne"},    {90, 24, "4320 Perg, Hof 1"},
      {rechts, 24, "1.234,50 €"}, {190, 24, "DE89 3704 0044 0532 0130 00"},
      {240, 24, "BKAUATWW"},      {90, 29, "1 Zeilen"},
      {rechts, 29, "1.234,50 €"}};
  const std::vector<Textstelle>& texte = gedruckt.seiten[0].texte;
  ASSERT_EQ(texte.size(), 7 + std::size(erwartet)) << "the frame has seven texts";
  for (std::size_t i = 0; i < std::size(erwartet); ++i) {
    const Textstelle& stelle = texte[7 + i];
    EXPECT_EQ(std::tuple(stelle.x, stelle.y, stelle.text), erwartet[i]) << i;
    EXPECT_EQ(stelle.schrift, kSchrift) << i;
  }
  EXPECT_EQ(texte[2].text, kTitel);
  EXPECT_EQ(texte[3].text, "AT61 1904 3002 3457 3201            MUSTAT2L") << "blanks: 1 + 10 + 1";
  EXPECT_EQ(texte[6].schrift, Druckschrift{8}) << "the credit line stands alone";
}

TEST(KontrolllisteTest, GapsPageBreaksAndSums) {
  struct Fall {
    int anzahl;
    std::vector<std::size_t> seiten;  // transfers on each
    QString summe;
  };
  const Fall faelle[] = {{1, {1}, "29: 1 Zeilen|90.071.992.547.409,93 €"},
                         {5, {5}, "52: 5 Zeilen|90.071.992.547.410,33 €"},
                         {6, {6}, "57: 6 Zeilen|90.071.992.547.410,43 €"},
                         {30, {30, 0}, "24: 30 Zeilen|90.071.992.547.412,83 €"},
                         {100, {30, 30, 30, 10}, "80: 100 Zeilen|90.071.992.547.419,83 €"}};
  for (const Fall& fall : faelle) {
    SCOPED_TRACE(fall.anzahl);
    UeberweisungT tabelle(static_cast<std::size_t>(fall.anzahl), ueberweisung(10));
    tabelle[0].EinzelBetrag = Waehrung::ausCent(9007199254740993);  // an odd cent that no double holds
    for (std::size_t i = 0; i < tabelle.size(); ++i) tabelle[i].KundeName = QString("Person %1").arg(i + 1);
    Kontrollwelt welt;
    const Gedrucktes& gedruckt = welt.drucken(tabelle);
    EXPECT_TRUE(gedruckt.beendet);
    ASSERT_EQ(gedruckt.seiten.size(), fall.seiten.size());
    std::size_t person = 0;
    for (std::size_t seite = 0; seite < fall.seiten.size(); ++seite) {
      const auto namen = spalte(gedruckt.seiten[seite], 20);
      ASSERT_EQ(namen.size(), fall.seiten[seite]) << "page " << seite;
      double y = 24;
      for (std::size_t i = 0; i < namen.size(); ++i, y += i % 5 == 0 ? 8 : 5) {
        EXPECT_EQ(namen[i], std::pair(y, QString("Person %1").arg(++person)));
      }
      EXPECT_EQ(gedruckt.seiten[seite].texte[2].text, kTitel);
      EXPECT_EQ(gedruckt.seiten[seite].texte[5].text, QString("Seite   %1").arg(seite + 1));
    }
    EXPECT_EQ(summenzeile(gedruckt.seiten.back()), fall.summe);
  }
}

TEST(KontrolllisteTest, AmountsAsTheUserWritesThemAndLongTextsCut) {
  Kontrollwelt welt;
  welt.schema.zeichen = {u'.', u',', "€", true, false};
  Ueberweisung lang = ueberweisung(123456789);
  lang.KundeName = QString(70, u'N');
  lang.KundeAdresse = QString(70, u'A');
  const Druckseite seite = welt.drucken({lang}).seiten[0];
  EXPECT_EQ(summenzeile(seite), "29: 1 Zeilen|€1,234,567.89");
  EXPECT_EQ(spalte(seite, 20)[0].second, QString(35, u'N') + "...") << "70 mm";
  EXPECT_EQ(spalte(seite, 90)[0].second, QString(51, u'A') + "...") << "small, up to the amount";
}

TEST(KontrolllisteTest, NoPrintsNothing) {
  Kontrollwelt welt;
  welt.anbieten({ueberweisung(1)});
  EXPECT_EQ(welt.meldungen.gezeigt, std::vector<Meldung>({kFrage}));
  EXPECT_TRUE(welt.drucker.dokumente.empty());
}

// Fails, or has another effect, at the n-th call of an operation of the printer.
std::function<void(const char*)> beimAufruf(QString vorgang, int n, std::function<void()> wirkung) {
  return [=, rest = n](const char* aufruf) mutable {
    if (aufruf == vorgang && --rest == 0) wirkung();
  };
}

TEST(KontrolllisteTest, EveryFailureIsToldAndNothingStaysBehind) {
  const Meldung garNicht{"Die Liste kann nicht gedruckt werden!", Symbol::Kritisch};
  const auto misslungen = [](const QString& grund) {
    return Meldung{"Die Liste über die Überweisungen konnte nicht gedruckt werden: " + grund +
                       ".\n\nDie Zahlungsdatei /prog/UE26001.xml ist davon nicht betroffen: Sie ist "
                       "vollständig und bleibt erhalten. Erstellen Sie für den Ausdruck keine zweite "
                       "Datei: Die Überweisungen stehen auch in der Liste, die der Druckknopf von Schritt 5 "
                       "druckt.",
                   Symbol::Kritisch, Knoepfe::Ok, "Fehler"};
  };
  struct Fall {
    QString vorgang;
    int aufruf, fehler;
    Meldung meldung;
  };
  constexpr int kAllgemein = 5;
  const Fall faelle[] = {
      {"dokument", 1, kAllgemein, garNicht},
      {"linie", 1, kAllgemein, garNicht},
      {"dokument", 1, kDruckerfehler, misslungen("Papierstau (Fehler 482)")},
      {"linie", 1, kDruckerfehler, misslungen("Papierstau (Fehler 482)")},
      {"text", 20, kAllgemein, misslungen("Papierstau (Fehler 5)")},
      {"neueSeite", 1, kAllgemein, misslungen("Papierstau (Fehler 5)")},
      {"linie", 3, kAllgemein, misslungen("Papierstau (Fehler 5)")},
      {"beenden", 1, kDruckerfehler, misslungen("Papierstau (Fehler 482)")},
  };
  const UeberweisungT tabelle(31, ueberweisung(1));
  for (const Fall& fall : faelle) {
    SCOPED_TRACE(fall.vorgang.toStdString() + ' ' + std::to_string(fall.fehler));
    Kontrollwelt welt;
    welt.drucker.stoerung = beimAufruf(fall.vorgang, fall.aufruf, [&] {
      throw Druckfehler{fall.fehler, "Papierstau"};
    });
    welt.meldungen.antworten = {Antwort::Ja};
    welt.anbieten(tabelle);
    EXPECT_EQ(welt.meldungen.gezeigt, std::vector<Meldung>({kFrage, fall.meldung}));
    EXPECT_EQ(welt.fehlerzeilen(),
              QStringList(QString("Fehler %1 (Papierstau) in Prozedur Kontrollliste in Modul Zahlungsverkehr")
                              .arg(fall.fehler)));
    for (const Gedrucktes& dokument : welt.drucker.dokumente) EXPECT_TRUE(dokument.verworfen);
    EXPECT_TRUE(welt.drucken(tabelle).beendet) << "the next one is whole";
  }
}

TEST(KontrolllisteTest, NoPrinterAtFirstOrNoMore) {
  Kontrollwelt welt;
  welt.drucker.name.clear();
  welt.meldungen.antworten = {Antwort::Ja};
  welt.anbieten({ueberweisung(1)});
  EXPECT_TRUE(welt.drucker.dokumente.empty());
  EXPECT_EQ(welt.meldungen.gezeigt.back(),
            (Meldung{"Die Liste kann nicht gedruckt werden!", Symbol::Kritisch}));

  EXPECT_EQ(welt.fehlerzeilen(), QStringList());

  welt.drucker.name = "Laser";
  welt.drucker.stoerung = beimAufruf("neueSeite", 1, [&] { welt.drucker.name.clear(); });
  EXPECT_TRUE(welt.drucken(UeberweisungT(31, ueberweisung(1))).verworfen);
  EXPECT_TRUE(welt.meldungen.gezeigt.back().text.startsWith(
      "Die Liste über die Überweisungen konnte nicht gedruckt werden: Der Drucker ist nicht mehr da"));
  EXPECT_EQ(welt.fehlerzeilen().size(), 1);
}

}  // namespace
}  // namespace pelvanto::test
