#include "payment/daten_typen.h"

#include <QLatin1StringView>

#include <array>
#include <utility>

#include "payment/umwandlung.h"
#include "support/blanks.h"
#include "support/programm_ende.h"

namespace pelvanto {

namespace {

enum class Art { Ganzzahl16, Ganzzahl32, Doppelt, Betrag, Einfach, Datum, Text, TextOderBlank, Wahrheit };

std::optional<Art> artAusName(const QString& name) {
  static const std::array<std::pair<QLatin1StringView, Art>, 10> arten = {
      {{QLatin1StringView("Integer"), Art::Ganzzahl16},
       {QLatin1StringView("Long"), Art::Ganzzahl32},
       {QLatin1StringView("Double"), Art::Doppelt},
       {QLatin1StringView("Currency"), Art::Betrag},
       {QLatin1StringView("Single"), Art::Einfach},
       {QLatin1StringView("Date"), Art::Datum},
       {QLatin1StringView("String"), Art::Text},
       {QLatin1StringView("Text"), Art::Text},
       {QLatin1StringView("String+"), Art::TextOderBlank},
       {QLatin1StringView("Boolean"), Art::Wahrheit}}};
  for (const auto& [artname, art] : arten) {
    if (name == artname) {
      return art;
    }
  }
  return std::nullopt;
}

// What Null, and for numbers and dates a text of blanks, stands for.
GefilterterWert leererWert(Art art) {
  switch (art) {
    case Art::Ganzzahl16:
      return qint16(0);
    case Art::Ganzzahl32:
      return qint32(0);
    case Art::Doppelt:
      return 0.0;
    case Art::Betrag:
      return Waehrung();
    case Art::Einfach:
      return 0.0F;
    case Art::Datum:
      return umwandlung::nulldatum();
    case Art::Text:
      return QString();
    case Art::TextOderBlank:
      return QStringLiteral(" ");
    case Art::Wahrheit:
      return false;
  }
  return {};
}

GefilterterWert umgewandelt(const Feldwert& wert, Art art, const Gebietsschema& schema) {
  constexpr double groesste16 = 32000;
  const QString* text = std::get_if<QString>(&wert);
  const bool istText = art == Art::Text || art == Art::TextOderBlank;
  if (!istText && art != Art::Wahrheit && text != nullptr && ohneAeussereBlanks(*text).isEmpty()) {
    return leererWert(art);
  }
  switch (art) {
    case Art::Ganzzahl16:
      if (umwandlung::alsZahl(wert, schema) > groesste16) {
        return umwandlung::alsGanzzahl32(wert, schema);
      }
      return umwandlung::alsGanzzahl16(wert, schema);
    case Art::Ganzzahl32:
      return umwandlung::alsGanzzahl32(wert, schema);
    case Art::Doppelt:
      return umwandlung::alsZahl(wert, schema);
    case Art::Betrag:
      return umwandlung::alsWaehrung(wert, schema);
    case Art::Einfach:
      return umwandlung::alsEinfach(wert, schema);
    case Art::Datum:
      return umwandlung::alsDatum(wert, schema);
    case Art::Text:
      return umwandlung::alsText(wert, schema);
    case Art::TextOderBlank: {
      const QString ergebnis = umwandlung::alsText(wert, schema);
      return ergebnis.isEmpty() ? QStringLiteral(" ") : ergebnis;
    }
    case Art::Wahrheit:
      return umwandlung::alsZahl(wert, schema) != 0;
  }
  return {};
}

// For the log only: what cannot be written as text is named.
QString protokolltext(const Feldwert& wert, const Gebietsschema& schema) {
  try {
    return umwandlung::alsText(wert, schema);
  } catch (const Umwandlungsfehler&) {
    return QStringLiteral("(Binärdaten)");
  }
}

}  // namespace

DatenTypen::DatenTypen(const Gebietsschema& schema, Protokoll& protokoll, Meldungen& meldungen,
                       FunktionenFürINI& ini)
    : schema_(schema), protokoll_(protokoll), meldungen_(meldungen), ini_(ini) {}

Zahlenzeichen DatenTypen::zahlenzeichen() const { return schema_.zahlenzeichen(); }

GefilterterWert DatenTypen::NullFilter(const Feldwert& wert, const QString& art) const {
  const bool istNull = std::holds_alternative<std::monostate>(wert);
  const std::optional<Art> bekannt = artAusName(art);
  if (!bekannt) {
    meldungen_.zeigen(
        {QStringLiteral("Falscher Wert in der Funktion NullFilter"), Symbol::Information, Knoepfe::Ok, art});
    if (!istNull) {
      protokoll_.schreiben(QStringLiteral("Falscher Wert in der Funktion Nullfilter: ") + art);
    }
    return {};
  }
  if (istNull) {
    return leererWert(*bekannt);
  }
  try {
    return umgewandelt(wert, *bekannt, schema_);
  } catch (const Umwandlungsfehler& fehler) {
    wertUnbrauchbar(wert, art, fehler.nummer, fehler.beschreibung);
  }
}

void DatenTypen::wertUnbrauchbar(const Feldwert& wert, const QString& art, int nummer,
                                 const QString& beschreibung) const {
  const QString text = QStringLiteral("Fehler %1 (").arg(nummer) + beschreibung +
                       QStringLiteral(") in Prozedur NullFilter in Modul DatenTypen.");
  protokoll_.fehler(text);
  protokoll_.fehler(QStringLiteral("Art: ") + art, 4);
  protokoll_.fehler(protokolltext(wert, schema_), 4);
  ini_.INISpeichern(QStringLiteral("Programm"), QStringLiteral("DatenbankenKomprimierenNotwendig"),
                    QStringLiteral("1"));
  meldungen_.zeigen(
      {text + QStringLiteral("\n\nDas Programm wird jetzt beendet und beim nächsten Neustart eine Reparatur "
                             "der Datenbanken durchgeführt. Sollte das Problem dann weiterhin bestehen, "
                             "informieren Sie bitte den Programmierer!")});
  throw ProgrammEnde();
}

QString DatenTypen::text(const Feldwert& wert) const {
  return std::get<QString>(NullFilter(wert, QStringLiteral("String")));
}

qint32 DatenTypen::ganzzahl(const Feldwert& wert) const {
  return std::get<qint32>(NullFilter(wert, QStringLiteral("Long")));
}

bool DatenTypen::wahrheit(const Feldwert& wert) const {
  return std::get<bool>(NullFilter(wert, QStringLiteral("Boolean")));
}

}  // namespace pelvanto
