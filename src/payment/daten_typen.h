#pragma once

#include <QString>

#include <optional>
#include <variant>

#include "database/feldwert.h"
#include "seams/gebietsschema.h"
#include "seams/meldungen.h"
#include "support/funktionen_fuer_ini.h"
#include "support/protokoll.h"
#include "support/waehrung.h"

namespace pelvanto {

// What `NullFilter` answers: a value of the type that was asked for; std::monostate is empty.
using GefilterterWert =
    std::variant<std::monostate, qint16, qint32, float, double, Waehrung, QDateTime, QString, bool>;

// Conversions of what a user typed or a database field holds. Without state; number characters are read
// from the user's settings at each call.
class DatenTypen {
 public:
  DatenTypen(const Gebietsschema& schema, Protokoll& protokoll, Meldungen& meldungen, FunktionenFürINI& ini);

  qint32 TextInLong(const QString& text) const;
  // An amount that does not fit counts as 0, like a text without digits.
  Waehrung TextInCurrency(const QString& text) const;
  // The same, but nullopt for an amount that does not fit.
  static std::optional<Waehrung> BetragLesen(const QString& text);
  // `art` is one of "Integer", "Long", "Double", "Currency", "Single", "Date", "String", "Text", "String+",
  // "Boolean". A value that cannot be converted asks for a repair of the databases in the settings file,
  // tells the user, and throws ProgrammEnde.
  GefilterterWert NullFilter(const Feldwert& wert, const QString& art) const;
  // The same for the types that the steps ask for.
  QString text(const Feldwert& wert) const;
  qint32 ganzzahl(const Feldwert& wert) const;
  bool wahrheit(const Feldwert& wert) const;
  QString Nummerisolieren(const QString& text, const QString& position, const QString& trennzeichen) const;

  Zahlenzeichen zahlenzeichen() const;

 private:
  [[noreturn]] void wertUnbrauchbar(const Feldwert& wert, const QString& art, int nummer,
                                    const QString& beschreibung) const;

  const Gebietsschema& schema_;
  Protokoll& protokoll_;
  Meldungen& meldungen_;
  FunktionenFürINI& ini_;
};

QString TextBereinigen(const QString& text, bool aeussereBehalten, const QString& erlaubt);
QString UmlauteErsetzen(const QString& text);
// The key's code, or 0 to swallow it.
ushort TastenFiltern(ushort zeichen, bool blankErlaubt, const QString& zusaetzlich, bool enterSperren,
                     const QString& verboten);

}  // namespace pelvanto
