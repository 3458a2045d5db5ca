// Step 2: who has paid the yearly contribution both last year and this year.
#include "steps/gruppen.h"
#include "steps/schritte.h"
#include "steps/spalten.h"
#include "steps/texte.h"
#include "steps/ungestoert_lesen.h"

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

struct Beitragszahler {
  int gruppeVorjahr = 0;  // 0: there is no such group
  int gruppeHeuer = 0;
  std::vector<Zeile> behalten, ausgeschieden;
};

std::vector<Spalte> beitragsspalten(int listenbreite) {
  return spaltenFuer(listenbreite, {{u"Name"_s, 0.25},
                                    {u"Adresse"_s, 0.25},
                                    {u"Telefon"_s, 0.3},
                                    {u"Beitrag"_s, 0.2, Ausrichtung::Links, u"Erste Einzahlung"_s}});
}

QString zahlungstext(bool vorjahr, bool heuer, int jahr) {
  const QString dieses = QString::number(jahr);
  const QString voriges = QString::number(jahr - 1);
  if (vorjahr && heuer) return voriges + u" u. "_s + dieses + u" bezahlt"_s;
  if (heuer) return u"nur "_s + dieses + u" bezahlt"_s;
  if (vorjahr) return u"nur "_s + voriges + u" bezahlt"_s;
  return u"nicht bezahlt"_s;
}

// Name, address and telephone; empty texts if the person is no longer there.
QStringList personendaten(Verbindung& verbindung, const DatenTypen& typen, int id) {
  const Abfrage person = verbindung.abfragen(
      u"SELECT Namen, Adresse, Telefon FROM Namensliste WHERE ID = "_s + QString::number(id));
  if (person.amEnde()) return {QString(), QString(), QString()};
  return {typen.text(person.feld(u"Namen")), typen.text(person.feld(u"Adresse")),
          typen.text(person.feld(u"Telefon"))};
}

Beitragszahler zahlerLesen(Umgebung& umgebung, const Seiten& seiten,
                           std::unique_ptr<Verbindung>& verbindung) {
  Beitragszahler zahler;
  const QString basis = ohneAeussereBlanks(seiten.seite2.txtEinzahlungen.text);
  const int jahr = umgebung.welt.uhr.jetzt().date().year();
  verbindung = umgebung.datenbank.direktOeffnen(umgebung.werte.DatenbankPfad, true);
  const auto jahresgruppe = [&](int welches) {
    return gruppeSuchen(*verbindung, umgebung.typen, basis + u" "_s + QString::number(welches));
  };
  zahler.gruppeVorjahr = jahresgruppe(jahr - 1);
  zahler.gruppeHeuer = jahresgruppe(jahr);
  if (zahler.gruppeVorjahr == 0 || zahler.gruppeHeuer == 0) return zahler;

  for (const Zeile& quelle : seiten.seite1.lvwListe1.zeilen()) {
    const int id = quelle.id();
    const bool vorjahr = istInGruppe(*verbindung, id, zahler.gruppeVorjahr);
    const bool heuer = istInGruppe(*verbindung, id, zahler.gruppeHeuer);
    Zeile zeile{zeilenschluessel(id), personendaten(*verbindung, umgebung.typen, id)};
    zeile.texte << zahlungstext(vorjahr, heuer, jahr);
    (vorjahr && heuer ? zahler.behalten : zahler.ausgeschieden).push_back(std::move(zeile));
  }
  return zahler;
}

void fehlendeGruppenMelden(Meldungen& meldungen, const Beitragszahler& zahler) {
  if (zahler.gruppeVorjahr == 0) {
    meldungen.zeigen({u"Die Personengruppe mit den Beiträgen für das vorige Jahr wurde nicht gefunden."_s});
  }
  if (zahler.gruppeHeuer == 0) {
    meldungen.zeigen({u"Die Personengruppe mit den Beiträgen für das laufende Jahr wurde nicht gefunden."_s});
  }
}

void zaehlerZeigen2(Seite2& seite) {
  seite.lblErgebnis2.text = QString::number(seite.lvwListe2.anzahl());
  seite.lblAusgeschieden2.text = QString::number(seite.lvwListeAusgeschieden2.anzahl());
}

}  // namespace

void ListeFuellen2(Umgebung& umgebung, Seiten& seiten) {
  Seite2& seite = seiten.seite2;
  for (Liste* liste : {&seite.lvwListe2, &seite.lvwListeAusgeschieden2}) {
    liste->spaltenSetzen(beitragsspalten(liste->breite));
    liste->leeren();
  }

  Beitragszahler zahler;
  const bool gelesen = ungestoertLesen(
      umgebung, u"ListeFuellen2"_s,
      [&](std::unique_ptr<Verbindung>& verbindung) { zahler = zahlerLesen(umgebung, seiten, verbindung); });
  if (!gelesen) {
    zaehlerZeigen2(seite);
    seite.cmdWeiter2.ein = false;
    return;
  }
  if (zahler.gruppeVorjahr == 0 || zahler.gruppeHeuer == 0) {
    fehlendeGruppenMelden(umgebung.welt.meldungen, zahler);
    return;
  }

  seite.lvwListe2.hinzufuegen(std::move(zahler.behalten));
  seite.lvwListeAusgeschieden2.hinzufuegen(std::move(zahler.ausgeschieden));
  zaehlerZeigen2(seite);
  const bool behalten = seite.lvwListe2.anzahl() > 0;
  seite.cmdDrucken2.ein = behalten || seite.lvwListeAusgeschieden2.anzahl() > 0;
  seite.cmdWeiter2.ein = behalten;
  seite.cmdSerienbriefe2Ausgeschieden.ein = behalten;
}

}  // namespace pelvanto
