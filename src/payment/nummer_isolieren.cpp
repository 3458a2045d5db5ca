#include "payment/daten_typen.h"
#include "support/blanks.h"

namespace pelvanto {

namespace {

// The n-th field (from 1); every field but the last without outer blanks.
QString feld(const QString& text, const QString& trennzeichen, int n) {
  qsizetype anfang = 0;
  for (int i = 1; i < n; ++i) {
    const qsizetype trenner = text.indexOf(trennzeichen, anfang);
    if (trenner < 0) {
      return {};
    }
    anfang = trenner + trennzeichen.size();
  }
  const qsizetype ende = text.indexOf(trennzeichen, anfang);
  return ende < 0 ? text.mid(anfang) : ohneAeussereBlanks(text.mid(anfang, ende - anfang));
}

QString bisZumErsten(const QString& text, const QString& trennzeichen) {
  qsizetype ende = text.size();
  for (const QString& trenner : {QStringLiteral(" "), trennzeichen}) {
    const qsizetype stelle = text.indexOf(trenner);
    ende = stelle >= 0 ? std::min(ende, stelle) : ende;
  }
  return text.left(ende);
}

QString nachDemLetzten(const QString& text, const QString& trennzeichen) {
  qsizetype anfang = 0;
  for (const QString& trenner : {QStringLiteral(" "), trennzeichen}) {
    const qsizetype stelle = text.lastIndexOf(trenner);
    anfang = stelle >= 0 ? std::max(anfang, stelle + trenner.size()) : anfang;
  }
  return text.mid(anfang);
}

bool heisst(const QString& position, const QString& gross) {
  return position == gross || position == gross.left(1).toLower() + gross.mid(1);
}

}  // namespace

QString DatenTypen::Nummerisolieren(const QString& text, const QString& position,
                                    const QString& trennzeichen) const {
  const QString trenner = trennzeichen.isEmpty() ? QStringLiteral("\t") : trennzeichen;
  const QString getrimmt = ohneAeussereBlanks(text);
  if (heisst(position, QStringLiteral("Links"))) {
    return bisZumErsten(getrimmt, trenner);
  }
  if (heisst(position, QStringLiteral("Rechts"))) {
    return nachDemLetzten(getrimmt, trenner);
  }
  if (heisst(position, QStringLiteral("Mitte"))) {
    meldungen_.zeigen({QStringLiteral("Falscher Wert in der Funktion Nummerisolieren"), Symbol::Information,
                       Knoepfe::Ok, QStringLiteral("Mitte")});
    return text;
  }
  const qint32 n = TextInLong(position);
  return n > 0 ? feld(getrimmt, trenner, n) : getrimmt;
}

}  // namespace pelvanto
