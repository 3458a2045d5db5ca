#include <optional>
#include <string_view>
#include <vector>

#include "payment/zahlungsdatei.h"

namespace pelvanto {

namespace {

// What the file says, read again from its bytes without the code that wrote them.
struct Gelesen {
  std::vector<qint64> anzahlen;
  std::vector<qint64> summen;  // cents
  std::vector<qint64> betraege;
  qsizetype bloecke = 0;
};

// "12" as 12; "12.34" as 1234 when two decimals are asked for. nullopt for any other form.
std::optional<qint64> zahl(std::string_view text, int nachkomma) {
  const bool negativ = text.starts_with('-');
  const std::string_view betrag = negativ ? text.substr(1) : text;
  const auto laenge = static_cast<qsizetype>(betrag.size());
  const qsizetype punkt = nachkomma == 0 ? laenge : laenge - nachkomma - 1;
  if (punkt < 1) {
    return std::nullopt;
  }
  qint64 wert = 0;
  for (size_t i = 0; i < betrag.size(); ++i) {
    const char zeichen = betrag.at(i);
    if (i == static_cast<size_t>(punkt)) {
      if (zeichen != '.') {
        return std::nullopt;
      }
      continue;
    }
    if (zeichen < '0' || zeichen > '9' || __builtin_mul_overflow(wert, qint64(10), &wert) ||
        __builtin_add_overflow(wert, qint64(zeichen - '0'), &wert)) {
      return std::nullopt;
    }
  }
  return negativ ? -wert : wert;
}

// Takes the number out of a line "<tag>number</name>"; false when the line is that but holds no number.
bool aufnehmen(std::string_view zeile, std::string_view tag, std::string_view name, int nachkomma,
               std::vector<qint64>& liste) {
  if (!zeile.starts_with(tag)) {
    return true;
  }
  const size_t ende = zeile.rfind("</");
  if (ende == std::string_view::npos || ende < tag.size() || zeile.substr(ende + 2) != name) {
    return false;
  }
  const std::optional<qint64> wert = zahl(zeile.substr(tag.size(), ende - tag.size()), nachkomma);
  liste.push_back(wert.value_or(0));
  return wert.has_value();
}

std::optional<Gelesen> lesen(const QByteArray& bytes) {
  Gelesen gelesen;
  const std::string_view alles(bytes.constData(), static_cast<size_t>(bytes.size()));
  for (size_t anfang = 0; anfang < alles.size();) {
    const size_t umbruch = alles.find('\n', anfang);
    if (umbruch == std::string_view::npos || umbruch == anfang || alles.at(umbruch - 1) != '\r') {
      return std::nullopt;
    }
    while (alles[anfang] == ' ') {  // ends at the line's end at the latest
      ++anfang;
    }
    const std::string_view zeile = alles.substr(anfang, umbruch - 1 - anfang);
    anfang = umbruch + 1;
    gelesen.bloecke += zeile == "<CdtTrfTxInf>" ? 1 : 0;
    if (!aufnehmen(zeile, "<NbOfTxs>", "NbOfTxs>", 0, gelesen.anzahlen) ||
        !aufnehmen(zeile, "<CtrlSum>", "CtrlSum>", 2, gelesen.summen) ||
        !aufnehmen(zeile, R"(<InstdAmt Ccy="EUR">)", "InstdAmt>", 2, gelesen.betraege)) {
      return std::nullopt;
    }
  }
  return gelesen;
}

bool istErlaubtesByte(char zeichen) {
  return (zeichen >= ' ' && zeichen <= '~') || zeichen == '\r' || zeichen == '\n';
}

// Looks at all bytes, also behind a wrong one: so several are compared at once.
bool nurErlaubteBytes(const QByteArray& bytes) {
  unsigned char unerlaubt = 0;
  for (const char zeichen : bytes) {
    unerlaubt |= istErlaubtesByte(zeichen) ? 0 : 1;
  }
  return unerlaubt == 0;
}

bool zweimal(const std::vector<qint64>& werte, qint64 erwartet) {
  return werte.size() == 2 && werte.at(0) == erwartet && werte.at(1) == erwartet;
}

}  // namespace

QString ZahlungsdateiPruefen(const QByteArray& bytes, const UeberweisungT& tabelle) {
  if (!nurErlaubteBytes(bytes)) {
    return QStringLiteral("Die Datei enthält unerlaubte Zeichen");
  }
  const std::optional<Gelesen> gelesen = lesen(bytes);
  if (!gelesen) {
    return QStringLiteral("Die Datei enthält eine unlesbare Zeile");
  }
  const auto anzahl = static_cast<qint64>(tabelle.size());
  if (gelesen->bloecke != anzahl || static_cast<qint64>(gelesen->betraege.size()) != anzahl ||
      !zweimal(gelesen->anzahlen, anzahl)) {
    return QStringLiteral("Die Anzahl der Überweisungen stimmt nicht");
  }
  qint64 summe = 0;
  for (size_t i = 0; i < tabelle.size(); ++i) {
    qint64 zehntausendstel = 0;
    const qint64 cent = gelesen->betraege.at(i);
    if (__builtin_mul_overflow(cent, qint64(100), &zehntausendstel) ||
        zehntausendstel != tabelle.at(i).EinzelBetrag.zehntausendstel() ||
        __builtin_add_overflow(summe, cent, &summe)) {
      return QStringLiteral("Der Betrag der %1. Überweisung stimmt nicht").arg(i + 1);
    }
  }
  return zweimal(gelesen->summen, summe) ? QString() : QStringLiteral("Die Summe stimmt nicht");
}

}  // namespace pelvanto
