#include "support/funktionen_fuer_ini.h"

#include <QStringList>

#include "support/blanks.h"
#include "support/ini_text.h"

namespace pelvanto {

namespace {

// What the 100-byte buffer of the private-profile functions holds beside its end mark.
constexpr qsizetype laengsterWert = 99;

// Remembered window positions change at every end of the program: not worth a line.
bool istFensterposition(const QString& Schluessel) {
  static const QStringList schluessel = {QStringLiteral("breit"), QStringLiteral("hoch"),
                                         QStringLiteral("links"), QStringLiteral("oben")};
  return schluessel.contains(Schluessel.toLower());
}

}  // namespace

FunktionenFürINI::FunktionenFürINI(Dateisystem& dateien, Protokoll& protokoll, QString iniDatei)
    : dateien_(dateien), protokoll_(protokoll), iniDatei_(std::move(iniDatei)) {}

QString FunktionenFürINI::INILesen(const QString& Abschnitt, const QString& Schluessel,
                                   const QString& Vorgabe) const {
  QByteArray bytes;
  QString wert = Vorgabe;
  if (dateien_.lesen(iniDatei_, bytes).ok()) {
    wert = INIText(bytes).wert(Abschnitt, Schluessel).value_or(Vorgabe);
  }
  return ohneAeussereBlanks(wert.left(laengsterWert));
}

bool FunktionenFürINI::lesbar() const {
  QByteArray bytes;
  return grundlageLesen(bytes);
}

bool FunktionenFürINI::INISpeichern(const QString& Abschnitt, const QString& Schluessel, const QString& Wert,
                                    bool KeinProtokoll, int Einrueckung) {
  if (!wertSchreiben(Abschnitt, Schluessel, Wert)) {
    protokoll_.fehler(QStringLiteral("INISpeichern: nicht gespeichert: ") + Abschnitt +
                      QStringLiteral(" / ") + Schluessel + QStringLiteral(" / ") + iniDatei_);
    return false;
  }
  if (!KeinProtokoll && !istFensterposition(Schluessel)) {
    const QString trenner = QStringLiteral(" / ");
    protokoll_.schreiben(QString(Einrueckung, u' ') + QStringLiteral("INISpeichern: ") + Abschnitt + trenner +
                         Schluessel + trenner + Wert + trenner + iniDatei_);
  }
  return true;
}

// The file is written under another name and put in the place of the old one in one step: it never lies there
// half written, and a failure leaves the old one. If the contact program has saved a setting of its own
// meanwhile, its new file is taken as the base instead.
bool FunktionenFürINI::wertSchreiben(const QString& Abschnitt, const QString& Schluessel,
                                     const QString& Wert) {
  constexpr int kVersuche = 5;
  const QString neueDatei = iniDatei_ + QStringLiteral(".neu");
  QByteArray vorher;
  if (!grundlageLesen(vorher)) return false;
  bool gespeichert = false;
  for (int versuch = 1; versuch <= kVersuche; ++versuch) {
    INIText text(vorher);
    text.setzen(Abschnitt, Schluessel, Wert);
    gespeichert = text.bytes() == vorher;
    if (gespeichert || !dateien_.schreiben(neueDatei, text.bytes()).ok()) break;
    QByteArray jetzt;
    if (!grundlageLesen(jetzt)) break;
    if (jetzt == vorher) {
      gespeichert = dateien_.ersetzen(neueDatei, iniDatei_).ok();
      break;
    }
    vorher = jetzt;
  }
  if (dateien_.existiert(neueDatei)) dateien_.loeschen(neueDatei);
  return gespeichert;
}

// Empty where there is no file yet. False: it cannot be read, and must not be replaced.
bool FunktionenFürINI::grundlageLesen(QByteArray& bytes) const {
  return dateien_.lesen(iniDatei_, bytes).ok() || !dateien_.existiert(iniDatei_);
}

}  // namespace pelvanto
