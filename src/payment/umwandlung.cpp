#include "payment/umwandlung.h"

#include <cmath>
#include <limits>
#include <utility>

#include "support/blanks.h"

namespace pelvanto {

namespace {

[[noreturn]] void falscherTyp() { throw Umwandlungsfehler{13, QStringLiteral("Typen unverträglich")}; }

[[noreturn]] void ueberlauf() { throw Umwandlungsfehler{6, QStringLiteral("Überlauf")}; }

double tageSeitNulldatum(const QDateTime& zeit) {
  constexpr double millisekundenJeTag = 86400000.0;
  return static_cast<double>(umwandlung::nulldatum().date().daysTo(zeit.date())) +
         zeit.time().msecsSinceStartOfDay() / millisekundenJeTag;
}

QString datumstext(const QDateTime& zeit) {
  QString datum = zeit.date().toString(QStringLiteral("dd.MM.yyyy"));
  if (zeit.time().msecsSinceStartOfDay() == 0) {
    return datum;
  }
  const QString uhrzeit = zeit.time().toString(QStringLiteral("HH:mm:ss"));
  return zeit.date() == umwandlung::nulldatum().date() ? uhrzeit : datum + u' ' + uhrzeit;
}

QDateTime datumAusText(const QString& text) {
  for (const QString& form :
       {QStringLiteral("d.M.yyyy"), QStringLiteral("d.M.yyyy H:m"), QStringLiteral("d.M.yyyy H:m:s"),
        QStringLiteral("yyyy-M-d"), QStringLiteral("yyyy-M-d H:m:s"), QStringLiteral("yyyy-M-d'T'H:m:s")}) {
    QDateTime zeit = QDateTime::fromString(text, form);
    if (zeit.isValid()) {
      return zeit;
    }
  }
  falscherTyp();
}

QString zahlentext(double zahl, const Gebietsschema& schema) {
  constexpr int sichereStellen = 15;
  return QString::number(zahl, 'g', sichereStellen).replace(u'.', schema.zahlenzeichen().dezimal);
}

// Whole units and up to four decimals, without zeros at the end.
QString waehrungstext(Waehrung wert, const Gebietsschema& schema) {
  constexpr qint64 einheit = 10000;
  const qint64 zahl = wert.zehntausendstel();
  QString text = QString::number(std::abs(zahl / einheit));
  if (zahl % einheit != 0) {
    QString nachkomma = QString::number(std::abs(zahl % einheit)).rightJustified(4, u'0');
    while (nachkomma.endsWith(u'0')) {
      nachkomma.chop(1);
    }
    text += schema.zahlenzeichen().dezimal + nachkomma;
  }
  return zahl < 0 ? u'-' + text : text;
}

template <typename Ganzzahl>
Ganzzahl ganzzahlAus(const Feldwert& wert, const Gebietsschema& schema) {
  const std::optional<qint64> zahl = rundenAufGeradeZahl(umwandlung::alsZahl(wert, schema));
  if (!zahl || !std::in_range<Ganzzahl>(*zahl)) {
    ueberlauf();
  }
  return static_cast<Ganzzahl>(*zahl);
}

// The conversions of each kind of value to a number and to a text.
struct ZuZahl {
  const Gebietsschema& schema;
  double operator()(std::monostate) const { falscherTyp(); }
  double operator()(bool wert) const { return wert ? -1 : 0; }
  double operator()(int wert) const { return wert; }
  double operator()(double wert) const { return wert; }
  double operator()(Waehrung wert) const { return wert.alsDouble(); }
  double operator()(const QDateTime& wert) const { return tageSeitNulldatum(wert); }
  double operator()(const QByteArray&) const { falscherTyp(); }
  double operator()(const QString& wert) const {
    const std::optional<double> zahl = zahlAusText(wert, schema.zahlenzeichen());
    if (!zahl) {
      falscherTyp();
    }
    return *zahl;
  }
};

struct ZuText {
  const Gebietsschema& schema;
  QString operator()(std::monostate) const { falscherTyp(); }
  QString operator()(bool wert) const { return wert ? QStringLiteral("Wahr") : QStringLiteral("Falsch"); }
  QString operator()(int wert) const { return QString::number(wert); }
  QString operator()(double wert) const { return zahlentext(wert, schema); }
  QString operator()(Waehrung wert) const { return waehrungstext(wert, schema); }
  QString operator()(const QDateTime& wert) const { return datumstext(wert); }
  QString operator()(const QString& wert) const { return wert; }
  QString operator()(const QByteArray&) const { falscherTyp(); }
};

}  // namespace

std::optional<double> zahlAusText(const QString& text, const Zahlenzeichen& zeichen) {
  QString zahl = ohneAeussereBlanks(text);
  if (!zeichen.gruppierung.isNull()) {
    zahl.remove(zeichen.gruppierung);
  }
  // A point that is neither the decimal nor the grouping character is none of the user's.
  if (zeichen.dezimal != u'.' && zahl.contains(u'.')) {
    return std::nullopt;
  }
  zahl.replace(zeichen.dezimal, u'.');
  for (const QChar stelle : zahl) {
    if (!QStringView(u"0123456789+-.eE").contains(stelle)) {
      return std::nullopt;
    }
  }
  bool ok = false;
  const double wert = zahl.toDouble(&ok);
  if (!ok && std::isinf(wert)) {
    return wert;
  }
  return ok ? std::optional(wert) : std::nullopt;
}

namespace umwandlung {

QDateTime nulldatum() { return {QDate(1899, 12, 30), QTime(0, 0)}; }

QString alsText(const Feldwert& wert, const Gebietsschema& schema) {
  return std::visit(ZuText{schema}, wert);
}

double alsZahl(const Feldwert& wert, const Gebietsschema& schema) {
  const double zahl = std::visit(ZuZahl{schema}, wert);
  if (!std::isfinite(zahl)) {
    ueberlauf();
  }
  return zahl;
}

qint32 alsGanzzahl32(const Feldwert& wert, const Gebietsschema& schema) {
  const int* ganzzahl = std::get_if<int>(&wert);
  return ganzzahl != nullptr ? *ganzzahl : ganzzahlAus<qint32>(wert, schema);
}

qint16 alsGanzzahl16(const Feldwert& wert, const Gebietsschema& schema) {
  return ganzzahlAus<qint16>(wert, schema);
}

float alsEinfach(const Feldwert& wert, const Gebietsschema& schema) {
  const double zahl = alsZahl(wert, schema);
  if (std::fabs(zahl) > std::numeric_limits<float>::max()) {
    ueberlauf();
  }
  return static_cast<float>(zahl);
}

Waehrung alsWaehrung(const Feldwert& wert, const Gebietsschema& schema) {
  constexpr double zehntausendstelJeEinheit = 10000.0;
  if (const Waehrung* betrag = std::get_if<Waehrung>(&wert)) {
    return *betrag;
  }
  const auto zahl = rundenAufGeradeZahl(alsZahl(wert, schema) * zehntausendstelJeEinheit);
  if (!zahl) {
    ueberlauf();
  }
  return Waehrung::ausZehntausendsteln(*zahl);
}

QDateTime alsDatum(const Feldwert& wert, const Gebietsschema& schema) {
  constexpr double fruehester = -657434;  // 0100-01-01
  constexpr double spaetester = 2958466;  // the day after 9999-12-31
  if (const QDateTime* zeit = std::get_if<QDateTime>(&wert)) {
    return *zeit;
  }
  if (const QString* text = std::get_if<QString>(&wert)) {
    return datumAusText(ohneAeussereBlanks(*text));
  }
  const double tage = alsZahl(wert, schema);
  if (tage < fruehester || tage >= spaetester) {
    ueberlauf();
  }
  // The fraction is the time of day, before the zero date too.
  const double ganze = std::trunc(tage);
  const QDate tag = nulldatum().date().addDays(static_cast<qint64>(ganze));
  constexpr int sekundenJeTag = 86400;
  const auto sekunden = static_cast<int>(std::lround(std::fabs(tage - ganze) * sekundenJeTag));
  return {tag.addDays(sekunden / sekundenJeTag), QTime(0, 0).addSecs(sekunden % sekundenJeTag)};
}

}  // namespace umwandlung
}  // namespace pelvanto
