#include "database/feldwert.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

namespace pelvanto {
namespace {

// The largest and smallest day that the database's dates know: year 100 to year 9999.
constexpr double kErsterTag = -657434;
constexpr double kLetzterTag = 2958466;

// Times of the database have no zone; UTC keeps them free of the gaps of summer time.
QDateTime alsDatum(double tage) {
  if (!(tage > kErsterTag - 1 && tage < kLetzterTag)) return {};
  const double ganze = std::trunc(tage);
  const QDate datum = QDate(1899, 12, 30).addDays(static_cast<qint64>(ganze));
  const auto millisekunden = static_cast<qint64>(std::llround(std::fabs(tage - ganze) * kMillisekundenJeTag));
  return QDateTime(datum, QTime(0, 0), Qt::UTC).addMSecs(millisekunden);
}

// A 128-bit magnitude, most significant group first.
using Betrag = std::array<std::uint32_t, 4>;

std::uint32_t geteiltDurchZehn(Betrag& betrag) {
  std::uint64_t rest = 0;
  for (std::uint32_t& gruppe : betrag) {
    const std::uint64_t wert = rest << 32 | gruppe;
    gruppe = static_cast<std::uint32_t>(wert / 10);
    rest = wert % 10;
  }
  return static_cast<std::uint32_t>(rest);
}

// Exactly, or not at all.
std::optional<Waehrung> alsWaehrung(const jet::Numeric& zahl) {
  constexpr int kStellen = 4;
  Betrag betrag = zahl.groups;
  int nachkommastellen = zahl.scale;
  for (; nachkommastellen > kStellen; --nachkommastellen) {
    if (geteiltDurchZehn(betrag) != 0) return std::nullopt;
  }
  constexpr auto kGrenze = static_cast<std::uint64_t>(std::numeric_limits<qint64>::max());
  std::uint64_t wert = std::uint64_t{betrag[2]} << 32 | betrag[3];
  if (betrag[0] != 0 || betrag[1] != 0 || wert > kGrenze) return std::nullopt;
  for (; nachkommastellen < kStellen; ++nachkommastellen) {
    if (wert > kGrenze / 10) return std::nullopt;
    wert *= 10;
  }
  const auto ganz = static_cast<qint64>(wert);
  return Waehrung::ausZehntausendsteln(zahl.negative ? -ganz : ganz);
}

double alsDouble(const jet::Numeric& zahl) {
  double wert = 0;
  for (const std::uint32_t gruppe : zahl.groups) wert = wert * 4294967296.0 + gruppe;
  wert /= std::pow(10.0, zahl.scale);
  return zahl.negative ? -wert : wert;
}

template <class Bytes>
Feldwert alsBytes(const Bytes& bytes) {
  return QByteArray(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size()));
}

struct Umsetzung {
  Feldwert operator()(jet::Null) const { return std::monostate{}; }
  Feldwert operator()(bool wert) const { return wert; }
  Feldwert operator()(std::int32_t wert) const { return int{wert}; }
  Feldwert operator()(float wert) const { return double{wert}; }
  Feldwert operator()(double wert) const { return wert; }
  Feldwert operator()(jet::Currency wert) const { return Waehrung::ausZehntausendsteln(wert.tenThousandths); }
  Feldwert operator()(jet::DateTime wert) const { return alsDatum(wert.days); }
  Feldwert operator()(const jet::Guid& wert) const { return alsBytes(wert.bytes); }
  Feldwert operator()(const jet::Numeric& wert) const {
    if (const std::optional<Waehrung> genau = alsWaehrung(wert)) return *genau;
    return alsDouble(wert);
  }
  Feldwert operator()(const jet::Text& wert) const { return QString::fromStdU16String(wert); }
  Feldwert operator()(const jet::Bytes& wert) const { return alsBytes(wert); }
};

}  // namespace

Feldwert alsFeldwert(const jet::Value& wert) { return std::visit(Umsetzung{}, wert); }

}  // namespace pelvanto
