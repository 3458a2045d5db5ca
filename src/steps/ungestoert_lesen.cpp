#include "steps/ungestoert_lesen.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

struct Durchgang {
  std::optional<Datenbankfehler> fehler;
  QString letzteAbfrage;
  bool gestoert = false;  // another program wrote meanwhile
};

Durchgang einmalLesen(Umgebung& umgebung, const std::function<void(std::unique_ptr<Verbindung>&)>& lesen) {
  Durchgang durchgang;
  std::unique_ptr<Verbindung> verbindung;
  try {
    lesen(verbindung);
  } catch (const Datenbankfehler& fehler) {
    durchgang.fehler = fehler;
  }
  if (verbindung) {
    durchgang.letzteAbfrage = verbindung->letzteAbfrage();
    durchgang.gestoert = umgebung.datenbank.stand(verbindung->pfad()) != verbindung->anfangsstand();
  }
  return durchgang;
}

}  // namespace

bool ungestoertLesen(Umgebung& umgebung, const QString& prozedur,
                     const std::function<void(std::unique_ptr<Verbindung>&)>& lesen) {
  Durchgang durchgang = einmalLesen(umgebung, lesen);
  if (durchgang.gestoert) {
    umgebung.protokoll.schreiben(prozedur +
                                 u": Ein anderes Programm hat die Datenbank während des Lesens geändert, "
                                 "der Schritt wird wiederholt."_s);
    durchgang = einmalLesen(umgebung, lesen);
  }
  if (durchgang.gestoert) {
    umgebung.protokoll.fehler(prozedur +
                              u": Ein anderes Programm hat die Datenbank auch während der Wiederholung "
                              "geändert, der Schritt wurde abgebrochen."_s);
    umgebung.welt.meldungen.zeigen(
        {u"Während dieser Schritt gelesen hat, wurde die Datenbank zweimal von einem anderen Programm "
         "geändert. Das Ergebnis wäre nicht verlässlich und wird deshalb nicht angezeigt.\r\n\r\n"
         "Bitte warten Sie, bis in Verbindo alles gespeichert ist, und lassen Sie sich das Ergebnis dann "
         "noch "
         "einmal zeigen."_s,
         Symbol::Ausrufezeichen});
    return false;
  }
  if (durchgang.fehler) {
    fehlerMelden(umgebung, *durchgang.fehler, prozedur, durchgang.letzteAbfrage);
    return false;
  }
  return true;
}

void fehlerMelden(Umgebung& umgebung, const Datenbankfehler& fehler, const QString& prozedur,
                  const QString& einzelheit) {
  const QString text = u"Fehler %1 ("_s.arg(fehler.nummer) + fehler.beschreibung + u") in Prozedur "_s +
                       prozedur + u" in Modul HauptFenster"_s;
  umgebung.protokoll.fehler(text);
  if (!einzelheit.isEmpty()) umgebung.protokoll.fehler(einzelheit, 4);
  umgebung.welt.meldungen.zeigen({text + u"\r\n\r\nBitte informieren Sie den Programmierer!"_s,
                                  Symbol::Kritisch, Knoepfe::Ok, u"Fehler"_s});
}

}  // namespace pelvanto
