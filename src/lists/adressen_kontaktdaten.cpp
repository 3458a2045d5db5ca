#include "lists/adressen_kontaktdaten.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

QString fehlertext(const Datenbankfehler& fehler) {
  return fehlerbericht({fehler.nummer, fehler.beschreibung}, u"AnschriftErstellen"_s, u"Adressen"_s);
}

const QString kAbfrageFehlgeschlagen = u"die Abfrage ist fehlgeschlagen (siehe Protokoll)"_s;

}  // namespace

Wortart Kontaktdaten::nachschlagen(const QString& wort) {
  QString gesucht = wort;
  gesucht.replace(u'\'', u"''"_s);
  std::optional<Tabelle> zeile;
  if (!datenbank_.TabelleOeffnen(verbindung_, zeile,
                                 u"SELECT * FROM Vornamen WHERE Vorname = '"_s + gesucht + u'\'', false)) {
    verworfen << wort;
    return Wortart::Verworfen;
  }
  if (zeile->amEnde()) return Wortart::Unbekannt;
  const auto ist = [&](QStringView feld) { return typen_.wahrheit(zeile->feld(feld)); };
  if (ist(u"Titel")) return Wortart::Titel;
  if (ist(u"TitelOben")) return Wortart::TitelOben;
  if (ist(u"AkademischerGrad")) return Wortart::Titel;
  const bool maennlich = ist(u"Männlich");
  // The query finds the word in any letter case; a first name counts only as it is written in the table.
  if (typen_.text(zeile->feld(u"Vorname")) != wort) return Wortart::Unbekannt;
  zaehlen(*zeile, wort);
  return maennlich ? Wortart::Mann : Wortart::Frau;
}

void Kontaktdaten::zaehlen(Tabelle& vorname, const QString& wort) {
  try {
    const qint32 anzahl = typen_.ganzzahl(vorname.feld(u"Anzahl"));
    if (anzahl == std::numeric_limits<qint32>::max()) return;
    vorname.setzen(u"Anzahl", Feldwert(anzahl + 1));
    vorname.speichern();
  } catch (const Datenbankfehler& fehler) {
    protokoll_.fehler(fehlertext(fehler));
    protokoll_.fehler(u"Der Vorname "_s + wort + u" wurde nicht gezählt."_s, 4);
  }
}

std::optional<Tabelle> Kontaktdaten::oeffnen(const Person& person, const QString& feld) {
  std::optional<Tabelle> zeile;
  datenbank_.TabelleOeffnen(
      verbindung_, zeile,
      u"SELECT "_s + feld + u" FROM Namensliste WHERE ID = "_s + QString::number(person.id), false);
  return zeile;
}

void Kontaktdaten::merkmalSetzen(const Person& person, const QString& merkmal) {
  const QString name = merkmal == u"keineAnrede"_s ? u"keine Anrede"_s : merkmal;
  const QString was = u"Das Merkmal '"_s + name + u'\'';
  try {
    std::optional<Tabelle> zeile = oeffnen(person, merkmal);
    if (!zeile) return nichtGespeichert(person, was, kAbfrageFehlgeschlagen);
    if (zeile->amEnde()) return;
    zeile->setzen(merkmal, Feldwert(1));
    zeile->speichern();
    protokoll_.schreiben(was + u" der PersonenID %1 wurde gesetzt."_s.arg(person.id));
  } catch (const Datenbankfehler& fehler) {
    protokoll_.fehler(fehlertext(fehler));
    nichtGespeichert(person, was, fehler.beschreibung);
  }
}

void Kontaktdaten::adresseBerichtigen(
    const Person& person, const std::function<std::optional<QString>(const QString&)>& berichtigen) {
  QString was = u"Die Korrektur der Adresse"_s;
  try {
    std::optional<Tabelle> zeile = oeffnen(person, u"Adresse"_s);
    if (!zeile) return nichtGespeichert(person, was, kAbfrageFehlgeschlagen);
    if (zeile->amEnde()) return;
    const QString bisher = typen_.text(zeile->feld(u"Adresse"));
    const std::optional<QString> neu = berichtigen(bisher);
    if (!neu) return;
    was += u" auf '"_s + *neu + u'\'';
    zeile->setzen(u"Adresse", Feldwert(*neu));
    zeile->speichern();
    protokoll_.schreiben(u"Die Adresse der PersonenID %1 wurde geändert von '"_s.arg(person.id) + bisher +
                         u"' auf '"_s + *neu + u"'."_s);
  } catch (const Datenbankfehler& fehler) {
    protokoll_.fehler(fehlertext(fehler));
    nichtGespeichert(person, was, fehler.beschreibung);
  }
}

void Kontaktdaten::nichtGespeichert(const Person& person, const QString& was, const QString& grund) {
  const QString text = was + u" konnte in den Stammdaten der PersonenID "_s + QString::number(person.id) +
                       u" ("_s + person.namen + u") nicht gespeichert werden: "_s + grund;
  protokoll_.fehler(text, 4);
  meldungen_.zeigen({text + u".\r\n\r\nDas Kopieren geht ohne diese Änderung weiter. Bitte tragen Sie sie in "
                            u"Verbindo selbst ein."_s,
                     Symbol::Ausrufezeichen, Knoepfe::Ok, u"Stammdaten ändern"_s});
}

}  // namespace pelvanto
