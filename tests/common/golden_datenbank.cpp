#include "common/golden_datenbank.h"

#include <stdexcept>

#include "common/golden_text.h"

namespace pelvanto::test {

namespace {

using beispiel::TextOderNull;

[[noreturn]] void fehler(const QString& zeile) {
  throw std::runtime_error("malformed description: " + zeile.toStdString());
}

TextOderNull text(const QString& feld) {
  if (feld.isNull()) return std::nullopt;
  return feld.toStdU16String();
}

void setzeOption(const QString& zeile, beispiel::Tabellenoptionen& optionen) {
  if (zeile == u"ohne Nebenindexe") {
    optionen.nebenindexe = false;
  } else if (zeile == u"gelöschte Zeilen") {
    optionen.geloeschteZeilen = true;
  } else if (zeile == u"verschobene Zeilen") {
    optionen.verschobeneZeilen = true;
  } else {
    fehler(zeile);
  }
}

void setzeSpalte(beispiel::Person& person, const QString& spalte, const QString& feld) {
  if (spalte == u"ID") {
    person.id = feld.toInt();
  } else if (spalte == u"Namen") {
    person.namen = text(feld);
  } else if (spalte == u"Adresse") {
    person.adresse = text(feld);
  } else if (spalte == u"Telefon") {
    person.telefon = text(feld);
  } else if (spalte == u"UstPauschaliert") {
    person.ustPauschaliert = feld == u"1";
  } else if (spalte == u"UIDNummer") {
    person.uidNummer = text(feld);
  } else if (spalte == u"IBAN") {
    person.iban = text(feld);
  } else if (spalte == u"BIC") {
    person.bic = text(feld);
  } else {
    fehler(spalte);
  }
}

beispiel::Person person(const QStringList& spalten, const QStringList& felder) {
  if (felder.size() != spalten.size()) fehler(felder.join(u'|'));
  beispiel::Person ergebnis;
  for (qsizetype i = 0; i < felder.size(); ++i) setzeSpalte(ergebnis, spalten[i], felder[i]);
  return ergebnis;
}

void mitglieder(const QStringList& felder, VerbindoDatenbank& datenbank) {
  const std::int32_t gruppe = felder.front().toInt();
  for (const QString& eintrag : felder.value(1).split(u' ', Qt::SkipEmptyParts)) {
    const QStringList teile = eintrag.split(u'=');
    datenbank.mitglied(teile[0].toInt(), gruppe,
                       teile.size() > 1 ? beispiel::ZahlOderNull(teile[1].toInt()) : std::nullopt);
  }
}

}  // namespace

VerbindoDatenbank datenbankLesen(const std::filesystem::path& beschreibung) {
  VerbindoDatenbank datenbank;
  QString abschnitt;
  QStringList spalten;
  for (const QString& zeile : zeilenLesen(beschreibung)) {
    if (zeile.isEmpty() || zeile.startsWith(u'#')) continue;
    const QStringList felder = felderLesen(zeile);
    if (zeile.startsWith(u'[')) {
      abschnitt = zeile;
    } else if (abschnitt == u"[Optionen]") {
      setzeOption(zeile, datenbank.optionen);
    } else if (abschnitt == u"[Gruppen]") {
      datenbank.gruppe(felder.front().toInt(), text(felder.value(1)));
    } else if (abschnitt == u"[Personen]" && spalten.isEmpty()) {
      spalten = felder;
    } else if (abschnitt == u"[Personen]") {
      datenbank.person(person(spalten, felder));
    } else if (abschnitt == u"[Mitglieder]") {
      mitglieder(felder, datenbank);
    } else {
      fehler(zeile);
    }
  }
  return datenbank;
}

}  // namespace pelvanto::test
