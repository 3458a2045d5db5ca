// Fields as they are set, in the form of their column: exactly, or not at all.
#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <string>

#include "database/feldwert.h"
#include "jet/encode/row_encoder.h"
#include "jet/error.h"
#include "jet/text_codec.h"

namespace pelvanto {
namespace {

// 2 to the power of 53: up to here every whole number is a double.
constexpr double kGroessteGanzeZahl = 9007199254740992.0;
constexpr qint64 kZehntausend = 10000;
constexpr int kWaehrungsstellen = 4;

std::optional<qint64> ganzeZahl(const Feldwert& wert) {
  if (const auto* zahl = std::get_if<int>(&wert)) return *zahl;
  const auto* kommazahl = std::get_if<double>(&wert);
  if (kommazahl == nullptr || std::trunc(*kommazahl) != *kommazahl) return std::nullopt;
  if (std::fabs(*kommazahl) > kGroessteGanzeZahl) return std::nullopt;
  return static_cast<qint64>(*kommazahl);
}

std::optional<jet::Value> alsWahrheitswert(const Feldwert& wert) {
  if (const auto* wahr = std::get_if<bool>(&wert)) return *wahr;
  const std::optional<qint64> zahl = ganzeZahl(wert);
  if (!zahl || *zahl < -1 || *zahl > 1) return std::nullopt;
  return *zahl != 0;
}

std::optional<jet::Value> alsGanzzahl(const Feldwert& wert) {
  // As Access stores a truth value in a column of numbers.
  if (const auto* wahr = std::get_if<bool>(&wert)) return std::int32_t{*wahr ? -1 : 0};
  const std::optional<qint64> zahl = ganzeZahl(wert);
  if (!zahl || *zahl < std::numeric_limits<std::int32_t>::min() ||
      *zahl > std::numeric_limits<std::int32_t>::max()) {
    return std::nullopt;
  }
  return static_cast<std::int32_t>(*zahl);
}

std::optional<double> alsKommazahl(const Feldwert& wert) {
  if (const auto* zahl = std::get_if<int>(&wert)) return *zahl;
  const auto* kommazahl = std::get_if<double>(&wert);
  if (kommazahl == nullptr || !std::isfinite(*kommazahl)) return std::nullopt;
  return *kommazahl;
}

std::optional<qint64> alsZehntausendstel(const Feldwert& wert) {
  if (const auto* betrag = std::get_if<Waehrung>(&wert)) return betrag->zehntausendstel();
  const std::optional<qint64> zahl = ganzeZahl(wert);
  if (!zahl || std::abs(*zahl) > std::numeric_limits<qint64>::max() / kZehntausend) return std::nullopt;
  return *zahl * kZehntausend;
}

std::optional<jet::Value> alsSingle(const Feldwert& wert) {
  const std::optional<double> zahl = alsKommazahl(wert);
  if (!zahl || std::fabs(*zahl) > std::numeric_limits<float>::max()) return std::nullopt;
  const auto kurz = static_cast<float>(*zahl);
  if (double{kurz} != *zahl) return std::nullopt;
  return kurz;
}

std::optional<jet::Value> alsWaehrung(const Feldwert& wert) {
  const std::optional<qint64> betrag = alsZehntausendstel(wert);
  if (!betrag) return std::nullopt;
  return jet::Currency{*betrag};
}

// With as many decimal places as the column has.
std::optional<jet::Value> alsNumeric(const Feldwert& wert, std::uint8_t stellen) {
  const std::optional<qint64> betrag = alsZehntausendstel(wert);
  if (!betrag) return std::nullopt;
  quint64 ziffern = *betrag < 0 ? 0 - static_cast<quint64>(*betrag) : static_cast<quint64>(*betrag);
  int vorhanden = kWaehrungsstellen;
  for (; vorhanden > stellen; --vorhanden) {
    if (ziffern % 10 != 0) return std::nullopt;
    ziffern /= 10;
  }
  for (; vorhanden < stellen; ++vorhanden) {
    if (ziffern > std::numeric_limits<quint64>::max() / 10) return std::nullopt;
    ziffern *= 10;
  }
  const auto oben = static_cast<std::uint32_t>(ziffern >> 32);
  return jet::Numeric{*betrag < 0, {0, 0, oben, static_cast<std::uint32_t>(ziffern)}, stellen};
}

// The counterpart of reading: whole days from 1899-12-30 on, and the time of the day away from zero.
std::optional<jet::Value> alsDatum(const Feldwert& wert) {
  const auto* zeit = std::get_if<QDateTime>(&wert);
  if (zeit == nullptr || !zeit->isValid()) return std::nullopt;
  if (zeit->date() < QDate(100, 1, 1) || zeit->date() > QDate(9999, 12, 31)) return std::nullopt;
  const auto tage = static_cast<double>(QDate(1899, 12, 30).daysTo(zeit->date()));
  const double anteil = zeit->time().msecsSinceStartOfDay() / kMillisekundenJeTag;
  return jet::DateTime{tage < 0 ? tage - anteil : tage + anteil};
}

std::optional<jet::Value> alsText(const Feldwert& wert) {
  const auto* text = std::get_if<QString>(&wert);
  if (text == nullptr) return std::nullopt;
  return text->toStdU16String();
}

std::optional<jet::Value> alsGuid(const Feldwert& wert) {
  jet::Guid guid;
  const auto* bytes = std::get_if<QByteArray>(&wert);
  if (bytes == nullptr || bytes->size() != static_cast<qsizetype>(guid.bytes.size())) return std::nullopt;
  std::copy(bytes->begin(), bytes->end(), guid.bytes.begin());
  return guid;
}

std::optional<jet::Value> alsBytes(const Feldwert& wert) {
  const auto* bytes = std::get_if<QByteArray>(&wert);
  if (bytes == nullptr) return std::nullopt;
  return jet::Bytes(bytes->begin(), bytes->end());
}

std::optional<jet::Value> umgesetzt(const Feldwert& wert, const jet::ColumnDefinition& spalte) {
  switch (spalte.type) {
    case jet::ColumnType::Boolean:
      return alsWahrheitswert(wert);
    case jet::ColumnType::Byte:
    case jet::ColumnType::Integer:
    case jet::ColumnType::Long:
      return alsGanzzahl(wert);
    case jet::ColumnType::Currency:
      return alsWaehrung(wert);
    case jet::ColumnType::Single:
      return alsSingle(wert);
    case jet::ColumnType::Double:
      return alsKommazahl(wert);
    case jet::ColumnType::DateTime:
      return alsDatum(wert);
    case jet::ColumnType::Text:
    case jet::ColumnType::Memo:
      return alsText(wert);
    case jet::ColumnType::Guid:
      return alsGuid(wert);
    case jet::ColumnType::Numeric:
      return alsNumeric(wert, spalte.scale);
    case jet::ColumnType::Binary:
    case jet::ColumnType::Ole:
      return alsBytes(wert);
  }
  return std::nullopt;
}

}  // namespace

jet::Value alsJetWert(const Feldwert& wert, const jet::ColumnDefinition& spalte) {
  const bool null = std::holds_alternative<std::monostate>(wert);
  std::optional<jet::Value> umgesetzter = jet::Null{};
  if (!null) umgesetzter = umgesetzt(wert, spalte);
  if (!umgesetzter || (null && spalte.type == jet::ColumnType::Boolean)) {
    throw jet::Error(jet::ErrorKind::TypeMismatch,
                     "the value does not have the column's type: column " + jet::toUtf8(spalte.name));
  }
  return jet::encode::storableValue(std::move(*umgesetzter), spalte);
}

}  // namespace pelvanto
