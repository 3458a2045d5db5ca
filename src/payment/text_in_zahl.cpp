#include "payment/daten_typen.h"
#include "support/blanks.h"

namespace pelvanto {

namespace {

bool istDezimalziffer(QChar zeichen) { return zeichen >= u'0' && zeichen <= u'9'; }

// Appends a digit to `wert`; false when it no longer fits.
bool zifferAnhaengen(qint64& wert, int ziffer) {
  return !__builtin_mul_overflow(wert, qint64(10), &wert) &&
         !__builtin_add_overflow(wert, qint64(ziffer), &wert);
}

// The digits before and after the decimal point as ten-thousandths, ties to even.
std::optional<qint64> zehntausendstelAus(const QString& ganze, const QString& nachkomma) {
  constexpr int stellen = 4;
  qint64 wert = 0;
  for (const QChar zeichen : ganze + nachkomma.left(stellen).leftJustified(stellen, u'0')) {
    if (!zifferAnhaengen(wert, zeichen.digitValue())) {
      return std::nullopt;
    }
  }
  const QString rest = nachkomma.mid(stellen);
  const bool genauHalb = rest.startsWith(u'5') && rest.count(u'0') == rest.size() - 1;
  const bool auf = !rest.isEmpty() && rest.front() >= u'5' && (!genauHalb || wert % 2 != 0);
  if (auf && __builtin_add_overflow(wert, qint64(1), &wert)) {
    return std::nullopt;
  }
  return wert;
}

}  // namespace

qint32 DatenTypen::TextInLong(const QString& text) const {
  constexpr qsizetype meisteZiffern = 9;
  QString rest = ohneAeussereBlanks(text);
  if (rest.isEmpty()) {
    return 0;
  }
  const QChar gruppierung = zahlenzeichen().gruppierung;
  if (!gruppierung.isNull()) {
    rest.remove(gruppierung);
  }
  QString ziffern;
  bool negativ = false;
  for (const QChar zeichen : rest) {
    if (zeichen == u'-') {
      negativ = true;
    } else if (istDezimalziffer(zeichen)) {
      ziffern += zeichen;
    } else {
      break;
    }
  }
  if (ziffern.size() > meisteZiffern) {
    return 0;
  }
  const qint32 wert = ziffern.toInt();
  return negativ ? -wert : wert;
}

std::optional<Waehrung> DatenTypen::BetragLesen(const QString& text) {
  const QString gelesen = ohneAeussereBlanks(text) == u'-' ? QString() : text;
  const qsizetype komma = std::max(gelesen.lastIndexOf(u'.'), gelesen.lastIndexOf(u','));
  QString ganze;
  QString nachkomma;
  for (qsizetype i = 0; i < gelesen.size(); ++i) {
    if (istDezimalziffer(gelesen.at(i))) {
      (komma >= 0 && i > komma ? nachkomma : ganze) += gelesen.at(i);
    }
  }
  const std::optional<qint64> wert = zehntausendstelAus(ganze, nachkomma);
  if (!wert) {
    return std::nullopt;
  }
  return Waehrung::ausZehntausendsteln(gelesen.startsWith(u'-') ? -*wert : *wert);
}

Waehrung DatenTypen::TextInCurrency(const QString& text) const {
  return BetragLesen(text).value_or(Waehrung());
}

}  // namespace pelvanto
