#include "steps/listenausgabe.h"

#include "steps/beschaeftigt.h"
#include "support/blanks.h"
#include "support/zahlenformat.h"

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

QString anzahlPersonen(const Beschriftung& anzahl) { return u"Anzahl der Personen: "_s + anzahl.text; }

// With the rows deleted by hand, once there were any.
QString anzahlPersonen(const Beschriftung& anzahl, const Beschriftung& geloescht) {
  const QString text = anzahlPersonen(anzahl);
  return geloescht.sichtbar ? text + u"  ("_s + geloescht.text + u" gelöscht)"_s : text;
}

// Steps 3 and 3b: where no group is asked for nobody has dropped out.
Listenausgaben ausgabenNachGruppe(const QString& schritt, const Textfeld& feld, Listenausgabe behalten,
                                  Listenausgabe ausgeschieden) {
  const QString gruppe = ohneAeussereBlanks(feld.text);
  if (gruppe.isEmpty()) {
    behalten.titel = schritt + u": (Keine Gruppen benötigt)"_s;
    return {behalten};
  }
  behalten.titel = schritt + u": Enthalten in "_s + gruppe;
  ausgeschieden.titel = schritt + u": AUSGESCHIEDEN - weil nicht enthalten in "_s + gruppe;
  return {behalten, ausgeschieden};
}

// The quantity grouped by points, whatever the user groups by, and read as an amount, whose decimal point is
// the last one: tons. (Below 1,000 kg there is no point, and the quantity stays what it is.)
Waehrung mengeAlsBetrag(const QString& menge) {
  QString ziffern;
  for (const QChar zeichen : menge) {
    if (zeichen == u'-' || (zeichen >= u'0' && zeichen <= u'9')) ziffern += zeichen;
  }
  const Zahlenzeichen deutsch;
  return DatenTypen::BetragLesen(Zahlenformat::ganzzahl(ziffern.toLongLong(), deutsch)).value_or(Waehrung());
}

// "-" where there is no quantity: there is no price then.
QString centProKilo(const DatenTypen& typen, const Seite4& seite) {
  const Waehrung menge = mengeAlsBetrag(seite.lblMengeFuerBerechnung.text);
  if (menge == Waehrung()) return u"-"_s;
  const double preis = typen.TextInCurrency(seite.txtGesamtbetrag.text).alsDouble() / menge.alsDouble() / 10;
  return Zahlenformat::dezimal(preis, 4, typen.zahlenzeichen());
}

QString summen(const Beschriftung& netto, const Beschriftung& steuer, const Beschriftung& brutto) {
  return u"Netto: "_s + netto.text + u",  Steuer: "_s + steuer.text + u",  Brutto: "_s + brutto.text;
}

}  // namespace

Listenausgaben ausgaben1(const Umgebung& /*umgebung*/, const Seiten& seiten) {
  const Seite1& seite = seiten.seite1;
  return {{&seite.lvwListe1,
           u"Schritt 1: Mitglieder der Gruppe "_s + ohneAeussereBlanks(seite.txtUnterlieferungGruppe.text),
           anzahlPersonen(seite.lblErgebnis1, seite.lblErgebnis1Geloescht)}};
}

Listenausgaben ausgaben2(const Umgebung& umgebung, const Seiten& seiten) {
  const Seite2& seite = seiten.seite2;
  const QDate heute = umgebung.welt.uhr.jetzt().date();
  const QString heuer = heute.toString(u"yyyy"_s);
  const QString vorjahr = heute.addYears(-1).toString(u"yyyy"_s);
  return {{&seite.lvwListe2, u"Schritt 2: "_s + vorjahr + u" und "_s + heuer + u" bezahlt"_s,
           anzahlPersonen(seite.lblErgebnis2, seite.lblErgebnis2Geloescht)},
          {&seite.lvwListeAusgeschieden2,
           u"Schritt 2: AUSGESCHIEDEN - "_s + vorjahr + u" und/oder "_s + heuer + u" nicht bezahlt"_s,
           anzahlPersonen(seite.lblAusgeschieden2, seite.lblAusgeschieden2Geloescht)}};
}

Listenausgaben ausgaben3(const Umgebung& /*umgebung*/, const Seiten& seiten) {
  const Seite3& seite = seiten.seite3;
  return ausgabenNachGruppe(
      u"Schritt 3"_s, seite.txtGruppeNotwendig,
      {&seite.lvwListe3, {}, anzahlPersonen(seite.lblErgebnis3, seite.lblErgebnis3Geloescht)},
      {&seite.lvwListeAusgeschieden3,
       {},
       anzahlPersonen(seite.lblAusgeschieden3, seite.lblAusgeschieden3Geloescht)});
}

Listenausgaben ausgaben3b(const Umgebung& /*umgebung*/, const Seiten& seiten) {
  const Seite3b& seite = seiten.seite3b;
  return ausgabenNachGruppe(
      u"Schritt 3b"_s, seite.txtGruppeNotwendig3b,
      {&seite.lvwListe3b, {}, anzahlPersonen(seite.lblErgebnis3b, seite.lblErgebnis3bGeloescht)},
      {&seite.lvwListeAusgeschieden3b,
       {},
       anzahlPersonen(seite.lblAusgeschieden3b, seite.lblAusgeschieden3bGeloescht)});
}

Listenausgaben ausgaben4(const Umgebung& umgebung, const Seiten& seiten) {
  const Seite4& seite = seiten.seite4;
  QString untertitel = anzahlPersonen(seite.lblErgebnis4);
  if (seite.lblErgebnis4Ueber50000.sichtbar) {
    untertitel += u"  ( davon über 50.000 kg:  "_s + seite.lblErgebnis4Ueber50000.text + u" )"_s;
  }
  return {{&seite.lvwListe4,
           u"Schritt 4: Auszahlung berechnen      "_s + seite.txtGesamtbetrag.text + u"  /  "_s +
               seite.lblMengeFuerBerechnung.text + u" kg Milch = "_s + centProKilo(umgebung.typen, seite) +
               u" Cent pro kg"_s,
           untertitel, false},
          {&seite.lvwAusgeschieden4, u"Schritt 4: AUSGESCHIEDEN - keine Milchmenge"_s,
           anzahlPersonen(seite.lblAusgeschieden4), false}};
}

Listenausgaben ausgaben5(const Umgebung& /*umgebung*/, const Seiten& seiten) {
  const Seite5& seite = seiten.seite5;
  return {{&seite.lvwListe5,
           u"Schritt 5: Datenträger erstellen:  "_s +
               summen(seite.lblAlleNetto, seite.lblAlleSteuer, seite.lblAlleBrutto),
           u"10% ( "_s + summen(seite.lbl10Netto, seite.lbl10Steuer, seite.lbl10Brutto) + u" )    13%: ( "_s +
               summen(seite.lbl12Netto, seite.lbl12Steuer, seite.lbl12Brutto) + u" )"_s,
           false},
          {&seite.lvwAusgeschieden5, u"Schritt 5: AUSGESCHIEDEN - keine Bankverbindung"_s,
           anzahlPersonen(seite.lblAusgeschieden5), false}};
}

void listenDrucken(Umgebung& umgebung, Seiten& seiten, Knopf& knopf, AusgabenDerSeite ausgaben) {
  const Beschaeftigt beschaeftigt(umgebung.welt.oberflaeche, knopf);
  for (const Listenausgabe& ausgabe : ausgaben(umgebung, seiten)) {
    umgebung.listendruck.ListeDrucken(*ausgabe.liste, ausgabe.titel, ausgabe.untertitel,
                                      ausgabe.ohneFuenferabstand);
  }
}

void listenAlsCSVSpeichern(Umgebung& umgebung, Seiten& seiten, const QString& frage,
                           AusgabenDerSeite ausgaben) {
  if (umgebung.welt.meldungen.zeigen({frage, Symbol::Frage, Knoepfe::JaNein}) != Antwort::Ja) return;
  for (const Listenausgabe& ausgabe : ausgaben(umgebung, seiten)) {
    umgebung.csv.ListeAlsCSV(*ausgabe.liste, ausgabe.titel + u".csv"_s);
  }
}

}  // namespace pelvanto
