// The address of every person in tests/lists/anschriften, with all boxes and all changes of the contact data.
#include "lists/adressenwelt.h"
#include "lists/anschriften_faelle.h"
#include "support/windows1252.h"

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

constexpr int kID = 17;

class AnschriftenTest : public Adressenwelt, public testing::WithParamInterface<test::Anschriftfall> {
 protected:
  void personAnlegen(const test::Anschriftfall& fall) {
    datenbank.daten.vornamen = test::anschriftvornamen();
    datenbank.person({.id = kID - 1, .namen = u"Nachbar Hans", .adresse = u"4020 Linz"});
    datenbank.person({.id = kID,
                      .namen = fall.text(u"Namen"_s),
                      .adresse = fall.text(u"Adresse"_s),
                      .telefon = fall.text(u"Telefon"_s),
                      .familie = fall.zahl(u"Familie"_s),
                      .firma = fall.zahl(u"Firma"_s),
                      .keineAnrede = fall.zahl(u"KeineAnrede"_s),
                      .besondereBriefanrede = fall.text(u"BesondereBriefanrede"_s),
                      .eMail = fall.text(u"EMail"_s),
                      .faxNummern = fall.text(u"FaxNummern"_s),
                      .du = fall.zahl(u"Du"_s),
                      .keinFax = fall.zahl(u"KeinFax"_s),
                      .keinMail = fall.zahl(u"KeinMail"_s)});
    anlegen();
    programm.gebietsschema.vorwahl = fall.zahl(u"Vorwahl"_s).value_or(43);
    if (const auto land = fall.vorher.find(u"Land"_s); land != fall.vorher.end()) {
      programm.dateien.anlegen(programm.werte.INIDatei,
                               "[Programm]\r\nLand=" + land->second.toLatin1() + "\r\n");
    }
    programm.meldungen.antworten = fall.antworten;
    programm.meldungen.eingaben = fall.korrekturen;
  }

  QStringList boxen() const {
    QStringList boxen;
    for (const Meldung& meldung : programm.meldungen.gezeigt) {
      const Meldung& m = meldung;
      QString art = u"Andere"_s;
      if (m == Meldung{m.text, Symbol::Frage, Knoepfe::JaNeinAbbrechen, u"Stammdaten ändern"_s})
        art = u"Frage"_s;
      if (m == Meldung{m.text, Symbol::Frage, Knoepfe::JaNein, u"Stammdaten ändern"_s}) art = u"Nachfrage"_s;
      if (m == Meldung{m.text, Symbol::Information}) art = u"Hinweis"_s;
      if (m == Meldung{m.text}) art = u"Meldung"_s;
      boxen << art + u": "_s + m.text;
    }
    for (const Eingabe& eingabe : programm.meldungen.gefragt) {
      EXPECT_EQ(eingabe.titel, u"Adresse sollte korrigiert werden"_s);
      boxen << u"Eingabe: "_s + eingabe.text << u"Vorgabe: "_s + eingabe.vorgabe;
    }
    return boxen;
  }

  // What the contact data say that the case did not.
  QStringList geaendert(const test::Anschriftfall& fall) {
    QStringList zeilen;
    for (const QString& feld : {u"Familie"_s, u"Firma"_s, u"KeineAnrede"_s, u"Adresse"_s}) {
      const auto vorher = fall.vorher.find(feld);
      const QString alt = vorher == fall.vorher.end() ? u"-"_s : vorher->second;
      const QString neu = this->zeilen(feld, u"FROM Namensliste WHERE ID = 17"_s).value(0);
      if (neu != alt) zeilen << u"Danach "_s + feld + u": "_s + neu;
    }
    EXPECT_EQ(this->zeilen(u"Namen, Adresse"_s, u"FROM Namensliste WHERE ID = 16"_s),
              QStringList(u"Nachbar Hans|4020 Linz"_s));
    for (const QString& vorname : this->zeilen(u"Vorname, Anzahl"_s, u"FROM Vornamen"_s)) {
      const QStringList werte = vorname.split(u'|');
      for (int i = 5; i < werte[1].toInt(); ++i) zeilen << u"Gezählt: "_s + werte[0];
    }
    return zeilen;
  }
};

QStringList felder(const Anschrift& a) {
  const std::pair<QString, const QString&> texte[] = {
      {u"Anrede"_s, a.Anrede},
      {u"Vorname"_s, a.Vorname},
      {u"GanzeAnrede"_s, a.GanzeAnrede},
      {u"GanzerName"_s, a.GanzerName},
      {u"NamenZusatzZeile"_s, a.NamenZusatzZeile},
      {u"Adresse"_s, a.Adresse},
      {u"PLZOrt"_s, a.PLZOrt},
      {u"Sehr_geehr"_s, a.Sehr_geehr},
      {u"Titel"_s, a.Titel},
      {u"Fax"_s, a.Fax},
      {u"Famname"_s, a.Famname},
      {u"TitelOben"_s, a.TitelOben},
      {u"EMail"_s, a.EMail},
      {u"Telefon"_s, a.Telefon},
      {u"PLZ"_s, a.PLZ},
      {u"Ort"_s, a.Ort},
      {u"Straße"_s, a.Straße},
      {u"InternationaleFaxNummer"_s, a.InternationaleFaxNummer}};
  QStringList zeilen;
  for (const auto& [feld, text] : texte) {
    if (!text.isEmpty()) zeilen << feld + u": "_s + text;
  }
  if (a.Du) zeilen << u"Du: ja"_s;
  return zeilen;
}

TEST_P(AnschriftenTest, WieAufgeschrieben) {
  const test::Anschriftfall& fall = GetParam();
  personAnlegen(fall);
  const AnschriftErgebnis ergebnis = umgebung.adressen.AnschriftErstellen(kID);
  EXPECT_EQ(ergebnis.grund, QString());
  EXPECT_EQ(ergebnis.verworfeneWoerter, QStringList());
  EXPECT_EQ(ergebnis.anschrift.IDNummer, kID);
  EXPECT_EQ(boxen().join(u'\n').toStdString(), fall.gefragt.join(u'\n').toStdString());
  QStringList danach = felder(ergebnis.anschrift) + geaendert(fall);
  danach.sort();
  EXPECT_EQ(danach.join(u'\n').toStdString(), fall.danach.join(u'\n').toStdString());
  EXPECT_EQ(programm.meldungen.ungeplanteFragen, 0);
  EXPECT_TRUE(programm.meldungen.antworten.empty());
  EXPECT_TRUE(programm.meldungen.eingaben.empty());
  EXPECT_EQ(programm.fehlerprotokoll(), QStringList());
}

INSTANTIATE_TEST_SUITE_P(Aufgeschrieben, AnschriftenTest, testing::ValuesIn(test::anschriftfaelle()));

}  // namespace
}  // namespace pelvanto
