#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <variant>

#include "jet/table_definition.h"
#include "jet/value.h"
#include "support/waehrung.h"

namespace pelvanto {

// A field as a record set gives it; std::monostate is Null. byte, integer and long are int; single and
// double are double; decimal is Waehrung where it fits, else double; GUID, binary and OLE are bytes.
using Feldwert = std::variant<std::monostate, bool, int, double, Waehrung, QDateTime, QString, QByteArray>;

// Dates are stored in days.
inline constexpr double kMillisekundenJeTag = 86400000;

Feldwert alsFeldwert(const jet::Value& wert);
// The value as this column stores it. Throws jet::Error (TypeMismatch, Limit) where that would not be exactly
// the same value.
jet::Value alsJetWert(const Feldwert& wert, const jet::ColumnDefinition& spalte);

}  // namespace pelvanto
