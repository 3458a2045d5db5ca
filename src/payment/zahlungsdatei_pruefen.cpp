#include <algorithm>
#include <optional>
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
std::optional<qint64> zahl(QByteArrayView text, int nachkomma) {
  const bool negativ = text.startsWith('-');
  const QByteArrayView betrag = negativ ? text.sliced(1) : text;
  const qsizetype punkt = nachkomma == 0 ? betrag.size() : betrag.size() - nachkomma - 1;
  if (punkt < 1) {
    return std::nullopt;
  }
  qint64 wert = 0;
  for (qsizetype i = 0; i < betrag.size(); ++i) {
    const char zeichen = betrag.at(i);
    if (i == punkt) {
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
bool aufnehmen(QByteArrayView zeile, QByteArrayView tag, QByteArrayView name, int nachkomma,
               std::vector<qint64>& liste) {
  if (!zeile.startsWith(tag)) {
    return true;
  }
  const qsizetype ende = zeile.lastIndexOf("</");
  if (ende < tag.size() || zeile.sliced(ende + 2) != name) {
    return false;
  }
  const std::optional<qint64> wert = zahl(zeile.sliced(tag.size(), ende - tag.size()), nachkomma);
  liste.push_back(wert.value_or(0));
  return wert.has_value();
}

std::optional<Gelesen> lesen(const QByteArray& bytes) {
  Gelesen gelesen;
  const QByteArrayView alles(bytes);
  for (qsizetype anfang = 0; anfang < alles.size();) {
    const qsizetype umbruch = alles.indexOf('\n', anfang);
    const qsizetype ende = umbruch - 1;
    if (ende < anfang || alles.at(ende) != '\r') {
      return std::nullopt;
    }
    QByteArrayView zeile = alles.sliced(anfang, ende - anfang);
    anfang = ende + 2;
    while (zeile.startsWith(' ')) {
      zeile = zeile.sliced(1);
    }
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

bool zweimal(const std::vector<qint64>& werte, qint64 erwartet) {
  return werte.size() == 2 && werte.at(0) == erwartet && werte.at(1) == erwartet;
}

}  // namespace

QString ZahlungsdateiPruefen(const QByteArray& bytes, const UeberweisungT& tabelle) {
  if (!std::all_of(bytes.begin(), bytes.end(), istErlaubtesByte)) {
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
