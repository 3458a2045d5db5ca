#include <QDir>
#include <QFontMetricsF>
#include <QPdfWriter>
#include <QTemporaryDir>

#ifdef Q_OS_UNIX
#include <sys/resource.h>
#endif

#include <csignal>
#include <gtest/gtest.h>
#include <iostream>

#include "common/ausgabe.h"
#include "common/druckwelt.h"
#include "druck/druckserverwelt.h"
#include "druck/gedrucktes_pdf.h"
#include "seams/real/echter_drucker.h"

using namespace Qt::StringLiterals;

// Real documents. Where each text has to stand is worked out here from the rules, without the program's code.
namespace pelvanto {
namespace {

using test::Anker;
using test::Druckserverwelt;
using test::Solltext;

const QString kTitel = u"Schritt 5: Überweisungen für \"Größe & Maß\""_s;
const QString kUntertitel = u"Anzahl der Personen: 1.234  (2 gelöscht)"_s;
constexpr double kZeilenhoehe = 3.55;  // mm, of the 9 point font

QString name(int i) {
  if (i % 7 == 3)
    return u"Österreichisch-Ungarische Milchgenossenschaft Nr. %1 in Hinterstoder & Umgebung"_s.arg(i);
  return u"Bäuerlein %1 Süß"_s.arg(i);
}
QString ort(int i) { return u"%1 Öd"_s.arg(4000 + i); }
QString menge(int i) { return u"%1.000 kg"_s.arg(i); }
QString betrag(int i) { return u"%1,50"_s.arg(i * 10); }
QString notiz(int i) { return i % 3 == 0 ? u" "_s : u"ja %1"_s.arg(i); }

Liste liste(int zeilen) {
  Liste liste({});
  liste.spaltenSetzen({{u"ID"_s, u"ID"_s, 0},
                       {u"Name"_s, u"Name"_s, 3000},
                       {u"Ort"_s, u"Ort"_s, 1500, Ausrichtung::Mitte},
                       {u"Telefon"_s, u"Telefon"_s, 0},
                       {u"Menge"_s, u"Menge"_s, 1500, Ausrichtung::Rechts},
                       {u"Betrag"_s, u"Betrag"_s, 1500, Ausrichtung::Rechts},
                       {u"Notiz"_s, u"Notiz"_s, 1500, Ausrichtung::Mitte}});
  for (int i = 1; i <= zeilen; ++i) {
    liste.hinzufuegen(zeilenschluessel(i), {name(i), ort(i), u"0664"_s, menge(i), betrag(i), notiz(i)});
  }
  return liste;
}

// A name in the 86 mm of its column.
QString gekuerzterName(int i) {
  QPdfWriter blatt(QString{});
  blatt.setResolution(1200);
  const QFontMetricsF masse(QFont(u"Liberation Sans"_s, 9), &blatt);
  const auto breite = [&](const QString& text) { return masse.horizontalAdvance(text) * 25.4 / 1200; };
  if (breite(name(i)) <= 86) return name(i);
  qsizetype zeichen = 0;
  while (breite(name(i).left(zeichen + 1) + u"..."_s) <= 86) ++zeichen;
  return name(i).left(zeichen) + u"..."_s;
}

// 9000 twips on 257 mm: 85.67 mm for the name, 42.83 mm for each of the others. The hidden column begins at
// 148.5 mm, half a millimetre goes to the even number: so far reaches the column of the place.
std::vector<Solltext> zellen(int seite, double y, const QStringList& texte) {
  std::vector<Solltext> soll{{seite, texte[0], 20, y},
                             {seite, texte[1], 106 + (148 - 106) / 2.0, y, Anker::Mitte},
                             {seite, texte[2], 191, y, Anker::Rechts},
                             {seite, texte[3], 234, y, Anker::Rechts},
                             {seite, texte[4], 256, y, Anker::Mitte}};
  if (texte[4] == u" ") soll.pop_back();
  return soll;
}

void seitenrahmen(std::vector<Solltext>& soll, int seite) {
  const auto rahmen = test::rahmentexte(seite, kTitel, kUntertitel, u"Programmierung: Pelvanto-Team"_s);
  soll.insert(soll.end(), rahmen.begin(), rahmen.end());
  const auto koepfe = zellen(seite, 22, {u"Name"_s, u"Ort"_s, u"Menge"_s, u"Betrag"_s, u"Notiz"_s});
  soll.insert(soll.end(), koepfe.begin(), koepfe.end());
}

std::vector<Solltext> sollListe(int zeilen, bool ohneFuenferabstand) {
  std::vector<Solltext> soll;
  int seite = 1;
  seitenrahmen(soll, seite);
  double y = 30;
  for (int i = 1; i <= zeilen; ++i) {
    if (y > 185) {
      seitenrahmen(soll, ++seite);
      y = 30;
    }
    const auto zeile = zellen(seite, y, {gekuerzterName(i), ort(i), menge(i), betrag(i), notiz(i)});
    soll.insert(soll.end(), zeile.begin(), zeile.end());
    y += notiz(i) == u" " ? 4 : kZeilenhoehe + 0.5;
    if (!ohneFuenferabstand && i % 5 == 0) y += 3;
  }
  return soll;
}

void vergleichen(const QString& datei, int zeilen, bool ohneFuenferabstand) {
  const test::PDFInhalt inhalt = test::pdfLesen(datei);
  const std::vector<Solltext> soll = sollListe(zeilen, ohneFuenferabstand);
  ASSERT_EQ(inhalt.seiten.size(), static_cast<std::size_t>(soll.back().seite));
  for (const test::PDFSeite& seite : inhalt.seiten) {
    EXPECT_NEAR(seite.breite, 297, 0.5);
    EXPECT_NEAR(seite.hoehe, 210, 0.5);
  }
  const test::Abgleich abgleich = test::abgleichen(inhalt, soll);
  EXPECT_EQ(abgleich.maengel.mid(0, 10), QStringList());
  EXPECT_EQ(test::ueberlappungen(inhalt), QStringList());
  std::cout << zeilen << " rows: " << abgleich.texte << " texts on " << inhalt.seiten.size()
            << " pages, at most " << abgleich.groessteAbweichung << " mm away\n";
}

TEST(ListenDruckTest, EveryTextOfAPDFStandsInItsPlace) {
  QTemporaryDir ordner;
  PDFDrucker drucker(ordner.path());
  test::Druckwelt welt(drucker);
  EXPECT_FALSE(welt.listen.ListeDrucken(liste(0), kTitel, kUntertitel, true));
  EXPECT_TRUE(QDir(ordner.path()).isEmpty());
  for (const int zeilen : {1, 40, 200}) {
    SCOPED_TRACE(zeilen);
    const bool ohneFuenferabstand = zeilen == 40;
    EXPECT_TRUE(welt.listen.ListeDrucken(liste(zeilen), kTitel, kUntertitel, ohneFuenferabstand));
    vergleichen(ordner.filePath(u"Schritt 5  Überweisungen für  Größe & Maß.pdf"_s), zeilen,
                ohneFuenferabstand);
  }
}

TEST(ListenDruckTest, APDFThatIsNotEndedOrNotWholeLeavesNoFile) {
  QTemporaryDir ordner;
  PDFDrucker drucker(ordner.path());
  drucker.dokument(kTitel)->text(20, 20, u"halb"_s, {});
  EXPECT_TRUE(QDir(ordner.path()).isEmpty());

#ifdef Q_OS_UNIX
  // A full disk.
  test::Druckwelt voll(drucker);
  rlimit bisher{};
  getrlimit(RLIMIT_FSIZE, &bisher);
  const rlimit klein{2048, bisher.rlim_max};
  const auto signal = std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &klein);
  EXPECT_FALSE(voll.listen.ListeDrucken(liste(40), u"Titel"_s, {}, true));
  setrlimit(RLIMIT_FSIZE, &bisher);
  std::signal(SIGXFSZ, signal);
  EXPECT_TRUE(voll.programm.meldungen.texte().join(u' ').contains(u"nicht vollständig geschrieben"_s));
  EXPECT_TRUE(QDir(ordner.path()).isEmpty());
#endif

  PDFDrucker nirgends(ordner.filePath(u"fehlt"_s));
  test::Druckwelt welt(nirgends);
  EXPECT_FALSE(welt.listen.ListeDrucken(liste(1), u"Titel"_s, {}, true));
  ASSERT_EQ(welt.programm.meldungen.gezeigt.size(), 1U);
}

TEST_F(Druckserverwelt, EachListIsADocumentOfTheDefaultQueue) {
  EXPECT_EQ(drucker.standarddrucker(), u"Ablage");
  drucker.dokument(u"verworfen"_s)->text(20, 20, u"halb"_s, {});
  EXPECT_FALSE(welt.listen.ListeDrucken(liste(0), kTitel, kUntertitel, true));
  for (const int zeilen : {1, 40, 200}) {
    EXPECT_TRUE(welt.listen.ListeDrucken(liste(zeilen), kTitel, kUntertitel, zeilen == 40));
  }
  const std::vector<test::Druckauftrag> auftraege = server.auftraege(3);
  ASSERT_EQ(auftraege.size(), 3U);
  for (const test::Druckauftrag& auftrag : auftraege) EXPECT_EQ(auftrag.titel, kTitel);
  vergleichen(auftraege[0].datei, 1, false);
  vergleichen(auftraege[1].datei, 40, true);
  vergleichen(auftraege[2].datei, 200, false);
}

TEST_F(Druckserverwelt, AQueueThatRefusesTheDocumentIsTold) {
  ASSERT_EQ(server.starten(false), QString());
  EXPECT_FALSE(welt.listen.ListeDrucken(liste(1), u"Titel"_s, {}, true));
  ASSERT_EQ(welt.programm.meldungen.gezeigt.size(), 1U);
  const QString text = welt.programm.meldungen.gezeigt[0].text;
  EXPECT_TRUE(text.contains(u"hat das Dokument abgelehnt: "_s) && text.contains(u"Ablage"_s))
      << text.toStdString();
  EXPECT_EQ(server.auftraege(0).size(), 0U);
}

TEST_F(Druckserverwelt, AServerThatEndsMeanwhileIsToldAndThenThereIsNoPrinter) {
  ASSERT_TRUE(welt.druck.DruckSeiteBeginnen(1, u"Titel"_s, {}, Fussart::Klein));
  server.beenden();
  EXPECT_THROW(welt.druck.dokumentBeenden(), Druckfehler);
  EXPECT_EQ(drucker.standarddrucker(), QString());
  EXPECT_FALSE(welt.listen.ListeDrucken(liste(1), u"Titel"_s, {}, true));
  EXPECT_EQ(welt.programm.meldungen.texte(), QStringList());
}

}  // namespace
}  // namespace pelvanto
