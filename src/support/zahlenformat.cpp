#include "support/zahlenformat.h"

#include <cmath>

namespace pelvanto::Zahlenformat {

namespace {

QString gruppiert(const QString& ziffern, QChar gruppierung) {
  if (gruppierung.isNull()) {
    return ziffern;
  }
  QString text = ziffern;
  for (qsizetype stelle = text.size() - 3; stelle > 0; stelle -= 3) {
    text.insert(stelle, gruppierung);
  }
  return text;
}

// The magnitude also of the smallest number, whose negative does not fit.
quint64 betrag(qint64 wert) {
  return wert < 0 ? ~static_cast<quint64>(wert) + 1 : static_cast<quint64>(wert);
}

// A decimal number without sign, rounded half up to whole units: `ziffern` scaled by 10^-nachkomma.
QString dezimalGerundet(QString ziffern, int nachkomma, int stellen) {
  if (nachkomma <= stellen) {
    return ziffern + QString(stellen - nachkomma, u'0');
  }
  const int weg = nachkomma - stellen;
  ziffern = ziffern.rightJustified(weg + 1, u'0');
  const bool auf = ziffern.at(ziffern.size() - weg) >= u'5';
  ziffern.chop(weg);
  if (!auf) {
    return ziffern;
  }
  for (qsizetype stelle = ziffern.size() - 1; stelle >= 0; --stelle) {
    if (ziffern.at(stelle) != u'9') {
      ziffern[stelle] = QChar(static_cast<char16_t>(ziffern.at(stelle).unicode() + 1));
      return ziffern;
    }
    ziffern[stelle] = u'0';
  }
  return u'1' + ziffern;
}

QString ohneFuehrendeNullen(const QString& ziffern) {
  qsizetype stelle = 0;
  while (stelle < ziffern.size() - 1 && ziffern.at(stelle) == u'0') {
    ++stelle;
  }
  return ziffern.mid(stelle);
}

bool istNull(const QString& ziffern) { return ziffern.count(u'0') == ziffern.size(); }

QString mitDezimalzeichen(const QString& ziffern, int stellen, QChar dezimal, QChar gruppierung) {
  const QString ganze = ohneFuehrendeNullen(ziffern.chopped(stellen));
  const QString vorne = gruppiert(ganze.isEmpty() ? QStringLiteral("0") : ganze, gruppierung);
  return stellen == 0 ? vorne : vorne + dezimal + ziffern.right(stellen);
}

}  // namespace

QString ganzzahl(qint64 wert, const Zahlenzeichen& zeichen) {
  const QString text = gruppiert(QString::number(betrag(wert)), zeichen.gruppierung);
  return wert < 0 ? u'-' + text : text;
}

QString waehrung(Waehrung wert, const Zahlenzeichen& zeichen) {
  constexpr int waehrungsstellen = 4;
  constexpr int gezeigteStellen = 2;
  const qint64 zehntausendstel = wert.zehntausendstel();
  const QString alleZiffern =
      QString::number(betrag(zehntausendstel)).rightJustified(waehrungsstellen + 1, u'0');
  const QString ziffern = dezimalGerundet(alleZiffern, waehrungsstellen, gezeigteStellen);
  QString text = mitDezimalzeichen(ziffern, gezeigteStellen, zeichen.dezimal, zeichen.gruppierung);
  if (!zeichen.waehrung.isEmpty()) {
    const QString abstand = zeichen.waehrungAbstand ? QStringLiteral(" ") : QString();
    text = zeichen.waehrungVorne ? zeichen.waehrung + abstand + text : text + abstand + zeichen.waehrung;
  }
  return zehntausendstel < 0 && !istNull(ziffern) ? u'-' + text : text;
}

QString dezimal(double wert, int stellen, const Zahlenzeichen& zeichen) {
  if (!std::isfinite(wert)) {
    return {};
  }
  // 15 significant digits are what a double holds for certain: 1.005 counts as 1.005, not as the binary
  // number just below it.
  constexpr int nachErster = 14;
  const QString text = QString::number(std::fabs(wert), 'e', nachErster);
  const qsizetype trennung = text.indexOf(u'e');
  const int exponent = text.mid(trennung + 1).toInt();
  QString ziffern = text.left(trennung).remove(u'.');
  int nachkomma = nachErster - exponent;
  if (nachkomma < 0) {
    ziffern += QString(-nachkomma, u'0');
    nachkomma = 0;
  }
  ziffern = dezimalGerundet(ziffern, nachkomma, stellen).rightJustified(stellen + 1, u'0');
  const QString zahl = mitDezimalzeichen(ziffern, stellen, zeichen.dezimal, QChar());
  return wert < 0 && !istNull(ziffern) ? u'-' + zahl : zahl;
}

}  // namespace pelvanto::Zahlenformat
