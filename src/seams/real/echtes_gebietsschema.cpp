#include "seams/real/echtes_gebietsschema.h"

#include <algorithm>

namespace pelvanto {

namespace {

QChar erstesZeichen(const QString& text) { return text.isEmpty() ? QChar() : text.at(0); }

}  // namespace

Zahlenzeichen zahlenzeichenAus(const QLocale& schema) {
  Zahlenzeichen zeichen;
  zeichen.dezimal = erstesZeichen(schema.decimalPoint());
  if (zeichen.dezimal.isNull()) {
    zeichen.dezimal = u',';
  }
  zeichen.gruppierung = erstesZeichen(schema.groupSeparator());
  zeichen.waehrung = schema.currencySymbol();

  const QString probe = schema.toCurrencyString(1.0);
  const auto istZiffer = [](QChar zeichen) { return zeichen.isDigit(); };
  const auto ersteZiffer = std::find_if(probe.begin(), probe.end(), istZiffer) - probe.begin();
  const qsizetype stelle = zeichen.waehrung.isEmpty() ? -1 : probe.indexOf(zeichen.waehrung);
  if (stelle < 0) {
    zeichen.waehrung.clear();
    zeichen.waehrungAbstand = false;
    return zeichen;
  }
  zeichen.waehrungVorne = stelle < ersteZiffer;
  const qsizetype daneben = zeichen.waehrungVorne ? stelle + zeichen.waehrung.size() : stelle - 1;
  zeichen.waehrungAbstand = daneben >= 0 && daneben < probe.size() && probe.at(daneben).isSpace();
  return zeichen;
}

Zahlenzeichen EchtesGebietsschema::zahlenzeichen() const { return zahlenzeichenAus(QLocale::system()); }

}  // namespace pelvanto
