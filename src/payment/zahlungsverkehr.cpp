#include "payment/zahlungsverkehr.h"

#include "payment/zahlungsdatei.h"
#include "support/blanks.h"
#include "support/dauerhaft_schreiben.h"
#include "support/pfade.h"
#include "support/zahlenformat.h"

namespace pelvanto {

namespace {

constexpr int letzteNummer = 999;
constexpr int kuerzesteAngabe = 5;

QString nocheinmal() {
  return QStringLiteral("Bitte führen Sie Schritt 5 noch einmal aus und erstellen Sie die Datei dann neu.");
}

QString meldungsnummer(const QDateTime& jetzt, int nummer) {
  return QStringLiteral("UE") + jetzt.date().toString(QStringLiteral("yyyy")).right(2) +
         QString::number(nummer).rightJustified(3, u'0');
}

}  // namespace

Zahlungsverkehr::Zahlungsverkehr(const Prozesswerte& werte, DateienFinden& dateien, Protokoll& protokoll,
                                 Meldungen& meldungen, const Uhr& uhr, const DatenTypen& typen)
    : werte_(werte),
      dateien_(dateien),
      protokoll_(protokoll),
      meldungen_(meldungen),
      uhr_(uhr),
      typen_(typen) {}

bool Zahlungsverkehr::ablehnen(const QString& grund) const {
  meldungen_.zeigen({grund, Symbol::Kritisch});
  return false;
}

QString Zahlungsverkehr::freieNummer(const QDateTime& jetzt) const {
  for (int nummer = 1; nummer <= letzteNummer; ++nummer) {
    QString meldung = meldungsnummer(jetzt, nummer);
    const QString pfad = dateipfad(meldung);
    // A file that is there but cannot be opened has its number too.
    if (!dateien_.FileExists(pfad) && !dateien_.dateisystem().existiert(pfad)) {
      return meldung;
    }
  }
  return {};
}

QString Zahlungsverkehr::dateipfad(const QString& meldung) const {
  return pfadVerbinden(werte_.ProgrammOrdner, meldung + QStringLiteral(".xml"));
}

bool Zahlungsverkehr::UeberweisungDateiErstellen(const UeberweisungT& tabelle, const QString& eigeneIBAN,
                                                 const QString& eigeneBIC, QString& pfad) {
  if (tabelle.empty()) {
    protokoll_.schreiben(QStringLiteral("UeberweisungT hat keine Datensätze."));
    return false;
  }
  if (ohneAeussereBlanks(werte_.OrganisationsName).size() < kuerzesteAngabe) {
    return ablehnen(QStringLiteral("Die Bezeichnung des Absenders kann nicht kürzer als 5 Zeichen sein!"));
  }
  if (ohneAeussereBlanks(eigeneBIC).size() < kuerzesteAngabe) {
    return ablehnen(QStringLiteral("Offensichtlich wurde die BIC des Auftraggebers nicht erfasst."));
  }
  const std::optional<Waehrung> gesamt = Gesamtsumme(tabelle);
  if (!gesamt) {
    return ablehnen(
        QStringLiteral("Die Gesamtsumme ist zu groß, ein Erstellen der Datei ist nicht möglich!"));
  }
  if (*gesamt <= Waehrung()) {
    return ablehnen(QStringLiteral("Die Gesamtsumme beträgt ") +
                    Zahlenformat::waehrung(*gesamt, typen_.zahlenzeichen()) +
                    QStringLiteral(", ein Erstellen der Datei ist nicht möglich!"));
  }
  const QDateTime jetzt = uhr_.jetzt();
  const QString meldung = freieNummer(jetzt);
  if (meldung.isEmpty()) {
    return ablehnen(QStringLiteral("Im Ordner %1 sind alle %2 Nummern für Zahlungsdateien des Jahres %3 "
                                   "vergeben. Es wurde keine Datei erstellt. Bitte informieren Sie den "
                                   "Programmierer!")
                        .arg(werte_.ProgrammOrdner)
                        .arg(letzteNummer)
                        .arg(jetzt.date().year()));
  }
  const QByteArray inhalt =
      ZahlungsdateiText({meldung, jetzt, werte_.OrganisationsName, eigeneIBAN, ohneAeussereBlanks(eigeneBIC)},
                        tabelle, *gesamt);
  if (!schreiben(dateipfad(meldung), inhalt, tabelle)) {
    return false;
  }
  pfad = dateipfad(meldung);
  return true;
}

bool Zahlungsverkehr::schreiben(const QString& pfad, const QByteArray& inhalt, const UeberweisungT& tabelle) {
  Schreibergebnis ergebnis;
  ergebnis.fehler = ZahlungsdateiPruefen(inhalt, tabelle);
  if (ergebnis.fehler.isEmpty()) {
    ergebnis = dauerhaftSchreiben(dateien_, protokoll_, pfad, inhalt, Vorhandene::Bleibt);
  } else {
    protokoll_.fehler(QStringLiteral("Datei wird nicht geschrieben: ") + pfad);
    protokoll_.fehler(ergebnis.fehler, 4);
  }
  if (ergebnis.fehler.isEmpty()) {
    return true;
  }
  QString text = QStringLiteral("Die Datei ") + pfad + QStringLiteral(" konnte nicht erstellt werden: ") +
                 ergebnis.fehler + QStringLiteral(".\n\n") + nocheinmal();
  for (const QString& datei : ergebnis.uebrig) {
    text += QStringLiteral("\n\nDie unbrauchbare Datei ") + datei +
            QStringLiteral(
                " ließ sich nicht löschen. Löschen Sie sie bitte selbst und übergeben Sie sie "
                "keinesfalls der Bank!");
  }
  meldungen_.zeigen({text, Symbol::Kritisch, Knoepfe::Ok, QStringLiteral("Fehler")});
  return false;
}

QString DatumZeitISO(const QDateTime& zeit) { return zeit.toString(QStringLiteral("yyyy-MM-dd'T'HH:mm:ss")); }

}  // namespace pelvanto
