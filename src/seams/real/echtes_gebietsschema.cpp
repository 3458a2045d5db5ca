#include "seams/real/echtes_gebietsschema.h"

#include <algorithm>
#include <iterator>
#ifdef _WIN32
#include <windows.h>
#endif

#include "seams/real/landesvorwahl.h"

namespace pelvanto {

namespace {

QChar erstesZeichen(const QString& text) { return text.isEmpty() ? QChar() : text.at(0); }

// The only characters that are read as a decimal point where an amount is read back.
bool istPunktOderKomma(QChar zeichen) { return zeichen == u'.' || zeichen == u','; }

}  // namespace

Zahlenzeichen zahlenzeichenAus(const QLocale& schema) {
  Zahlenzeichen zeichen;
  zeichen.dezimal = erstesZeichen(schema.decimalPoint());
  if (!istPunktOderKomma(zeichen.dezimal)) {
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
  // The point of "1.000,00 kr." would be taken for the decimal point: a hundred times the amount.
  zeichen.waehrung.removeIf(istPunktOderKomma);
  return zeichen;
}

// Qt asks the system, so these are the user's own characters where he has changed those of his country.
Zahlenzeichen EchtesGebietsschema::zahlenzeichen() const { return zahlenzeichenAus(QLocale::system()); }

#ifdef _WIN32

// Windows keeps the number itself, for the country of the machine and not of the user.
int EchtesGebietsschema::landesvorwahl() const {
  wchar_t nummer[16] = {};
  ::GetLocaleInfoW(LOCALE_SYSTEM_DEFAULT, LOCALE_IDIALINGCODE, nummer, std::size(nummer));
  return QString::fromWCharArray(nummer).toInt();
}

#else

int EchtesGebietsschema::landesvorwahl() const { return landesvorwahlVon(QLocale::system()); }

#endif

}  // namespace pelvanto
