// Query texts become record sets; a failure is logged and answered with false.
#include "database/datenbank_routinen.h"
#include "jet/write/table_writer.h"

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

QString nummerUndText(const Datenbankfehler& fehler) {
  return u"Fehler %1 ("_s.arg(fehler.nummer) + fehler.beschreibung + u") "_s;
}

// A query begins with the word SELECT; everything else is the name of a table.
QString alsAbfrage(const QString& quelle) {
  const QString text = quelle.trimmed();
  const bool abfrage = text.startsWith(u"SELECT", Qt::CaseInsensitive) && text.size() > 6 &&
                       (text[6].isSpace() || text[6] == u'*' || text[6] == u'[');
  if (abfrage) return quelle;
  const bool geklammert = text.startsWith(u'[') && text.endsWith(u']');
  return u"SELECT * FROM "_s + (geklammert ? text : u"["_s + text + u"]"_s);
}

}  // namespace

bool DatenbankRoutinen::SnapshotOeffnen(Verbindung& Verbindung, std::optional<Abfrage>& Abfrage,
                                        const QString& SQL, bool MeldungZeigen, bool NurMitDatensaetzen,
                                        bool& Fehler) {
  if (SQL.trimmed().isEmpty()) {
    meldungen_.zeigen(
        {u"Die Abfrage ist leer. Bitte informieren Sie den Programmierer!"_s, Symbol::Kritisch});
    return false;
  }
  Abfrage.reset();
  try {
    Abfrage = Verbindung.abfragen(SQL);
    if (NurMitDatensaetzen && Abfrage->amEnde()) {
      Abfrage.reset();
      return false;
    }
    return true;
  } catch (const Datenbankfehler& fehler) {
    Fehler = true;
    fehlerProtokollieren(u"Fehler beim Öffnen eines Snapshots: "_s + fehler.beschreibung);
    fehlerProtokollieren(nummerUndText(fehler) + u"in Prozedur SnapshotOeffnen in DatenbankRoutinen."_s);
    fehlerProtokollieren(SQL, 4);
    if (MeldungZeigen) {
      meldungen_.zeigen(
          {nummerUndText(fehler) + u"in Prozedur SnapshotOeffnen in Modul DatenbankRoutinen"_s});
    }
    return false;
  }
}

bool DatenbankRoutinen::TabelleOeffnen(Verbindung& Verbindung, std::optional<Tabelle>& Abfrage,
                                       const QString& Quelle, bool MeldungZeigen) {
  Abfrage.reset();
  try {
    Abfrage = tabelleDirekt(Verbindung, Quelle);
    return true;
  } catch (const Datenbankfehler& fehler) {
    fehlerProtokollieren(u"Fehler beim Öffnen einer Tabelle: "_s + fehler.beschreibung);
    fehlerProtokollieren(Quelle, 4);
    if (MeldungZeigen) {
      meldungen_.zeigen({nummerUndText(fehler) +
                         u"in Prozedur TabelleOeffnen in Modul DatenbankRoutinen\r\n\r\n"_s + Quelle});
    }
    return false;
  }
}

Tabelle DatenbankRoutinen::tabelleDirekt(Verbindung& verbindung, const QString& Quelle) {
  return Tabelle(verbindung, alsAbfrage(Quelle), pause());
}

void DatenbankRoutinen::schreibenVorbereiten(Verbindung& verbindung, const QString& tabelle) {
  const jet::Text name = tabelle.toStdU16String();
  verbindung.schreiben(pause(), [&](jet::Transaction& vorgang, jet::Database& datenbank) {
    const jet::write::TableWriter schreiber(vorgang, datenbank, name);
    return false;
  });
}

}  // namespace pelvanto
