#include "support/pfade.h"

#include <QDir>

namespace pelvanto {

bool istPfadtrenner(QChar zeichen) { return zeichen == u'/' || zeichen == u'\\'; }

bool istDatei(const QString& pfad, const Dateisystem& dateien) {
  return dateien.existiert(pfad) && !dateien.istOrdner(pfad);
}

QString pfadVerbinden(const QString& ordner, const QString& name) {
  const bool getrennt = !ordner.isEmpty() && istPfadtrenner(ordner.back());
  if (getrennt) return ordner + name;
  // Where the system knows two separators, a path has only one kind of them.
  const bool schraeg = ordner.contains(u'/') && !ordner.contains(QDir::separator());
  return ordner + (schraeg ? QChar(u'/') : QDir::separator()) + name;
}

QString ordnerOhneTrenner(const QString& ordner) {
  QString ergebnis = ordner;
  while (ergebnis.size() > 1 && istPfadtrenner(ergebnis.back())) {
    ergebnis.chop(1);
  }
  return ergebnis;
}

QString pfadInJederSchreibweise(const QString& ordner, const QString& name, const Dateisystem& dateien) {
  QString wieGegeben = pfadVerbinden(ordner, name);
  if (dateien.existiert(wieGegeben)) {
    return wieGegeben;
  }
  QStringList namen = dateien.namen(ordner);
  namen.sort();
  for (const QString& vorhanden : namen) {
    QString pfad = pfadVerbinden(ordner, vorhanden);
    if (vorhanden.compare(name, Qt::CaseInsensitive) == 0 && !dateien.istOrdner(pfad)) {
      return pfad;
    }
  }
  return wieGegeben;
}

QString umgeleiteterPfad(const QString& pfad, const QString& eigenerOrdner) {
  const bool mitLaufwerk = pfad.size() > 2 && pfad.at(1) == u':' && istPfadtrenner(pfad.at(2));
  if (!mitLaufwerk || eigenerOrdner.isEmpty()) return {};
  return pfadVerbinden(eigenerOrdner, QStringLiteral("VirtualStore")) + pfad.mid(2);
}

Prozesswerte prozesswerteFuer(const QString& ordner, const Dateisystem& dateien) {
  Prozesswerte werte;
  werte.ProgrammOrdner = ordnerOhneTrenner(ordner);
  werte.INIDatei = pfadInJederSchreibweise(werte.ProgrammOrdner, QStringLiteral("verbindo.ini"), dateien);
  werte.DatenbankPfad =
      pfadInJederSchreibweise(werte.ProgrammOrdner, QStringLiteral("Verbindo.mdb"), dateien);
  return werte;
}

}  // namespace pelvanto
