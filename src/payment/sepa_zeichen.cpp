#include "payment/sepa_zeichen.h"

#include <QLatin1StringView>
#include <QList>

#include <algorithm>
#include <array>
#include <optional>

#include "payment/daten_typen.h"
#include "support/blanks.h"

namespace pelvanto {

namespace {

struct Umschrift {
  char32_t zeichen;
  const char* ersatz;
};

// What does not follow from the character's class or its base letter; in the order of the codes.
constexpr auto umschriften = std::to_array<Umschrift>({
    {U'<', "("},    {U'>', ")"},    {0x00AA, " "},  {0x00AB, ""},   {0x00B5, " "},  {0x00BA, " "},
    {0x00BB, ""},   {0x00C6, "AE"}, {0x00D0, "D"},  {0x00D8, "O"},  {0x00DE, "TH"}, {0x00DF, "ss"},
    {0x00E6, "ae"}, {0x00F0, "d"},  {0x00F8, "o"},  {0x00FE, "th"}, {0x0110, "D"},  {0x0111, "d"},
    {0x0126, "H"},  {0x0127, "h"},  {0x0131, "i"},  {0x0132, "IJ"}, {0x0133, "ij"}, {0x0138, "k"},
    {0x013F, "L"},  {0x0140, "l"},  {0x0141, "L"},  {0x0142, "l"},  {0x0149, "n"},  {0x014A, "N"},
    {0x014B, "n"},  {0x0152, "OE"}, {0x0153, "oe"}, {0x0166, "T"},  {0x0167, "t"},  {0x017F, "s"},
    {0x0180, "b"},  {0x0189, "D"},  {0x0192, "f"},  {0x0197, "I"},  {0x019A, "l"},  {0x01B5, "Z"},
    {0x01B6, "z"},  {0x01C4, "DZ"}, {0x01C5, "Dz"}, {0x01C6, "dz"}, {0x01C7, "LJ"}, {0x01C8, "Lj"},
    {0x01C9, "lj"}, {0x01CA, "NJ"}, {0x01CB, "Nj"}, {0x01CC, "nj"}, {0x01E4, "G"},  {0x01E5, "g"},
    {0x01F1, "DZ"}, {0x01F2, "Dz"}, {0x01F3, "dz"}, {0x0237, "j"},  {0x023B, "C"},  {0x023C, "c"},
    {0x0243, "B"},  {0x0248, "J"},  {0x0249, "j"},  {0x024E, "Y"},  {0x024F, "y"},  {0x0268, "i"},
    {0x02BB, ""},   {0x02BC, ""},   {0x1E9E, "SS"}, {0x2018, ""},   {0x2019, ""},   {0x201A, ""},
    {0x201B, ""},   {0x201C, ""},   {0x201D, ""},   {0x201E, ""},   {0x201F, ""},   {0x2026, "."},
    {0x2039, ""},   {0x203A, ""},   {0x20AC, "E"},  {0x2212, "-"},  {0xFB00, "ff"}, {0xFB01, "fi"},
    {0xFB02, "fl"}, {0xFB03, "ff"}, {0xFB04, "ff"}, {0xFB05, "st"}, {0xFB06, "st"},
});

constexpr char32_t ersteNichtAscii = 0x80;

bool istDruckbaresAscii(char32_t zeichen) { return zeichen >= U' ' && zeichen < 0x7F; }

bool istAsciiBuchstabe(char32_t zeichen) {
  return (zeichen >= U'a' && zeichen <= U'z') || (zeichen >= U'A' && zeichen <= U'Z');
}

std::optional<QString> ausTabelle(char32_t zeichen) {
  const auto* stelle = std::ranges::lower_bound(umschriften, zeichen, {}, &Umschrift::zeichen);
  if (stelle == umschriften.end() || stelle->zeichen != zeichen) {
    return std::nullopt;
  }
  return QString::fromLatin1(stelle->ersatz);
}

// The ASCII letter that carries the accents, also of letters in other shapes (circled, full width).
std::optional<QString> grundbuchstabe(char32_t zeichen) {
  const QList<uint> zerlegt =
      QString::fromUcs4(&zeichen, 1).normalized(QString::NormalizationForm_KD).toUcs4();
  if (zerlegt.isEmpty() || !istAsciiBuchstabe(zerlegt.front())) {
    return std::nullopt;
  }
  const auto istMarke = [](uint zeichen) { return QChar::isMark(zeichen); };
  if (!std::all_of(zerlegt.begin() + 1, zerlegt.end(), istMarke)) {
    return std::nullopt;
  }
  return QString(QChar(static_cast<char16_t>(zerlegt.front())));
}

QString nachArt(char32_t zeichen) {
  switch (QChar::category(zeichen)) {
    case QChar::Letter_Uppercase:
    case QChar::Letter_Lowercase:
    case QChar::Letter_Titlecase:
    case QChar::Letter_Modifier:
    case QChar::Letter_Other:
      return grundbuchstabe(zeichen).value_or(QStringLiteral("."));
    case QChar::Number_DecimalDigit:
      return QString::number(QChar::digitValue(zeichen));
    case QChar::Punctuation_Dash:
      return QStringLiteral("-");
    case QChar::Mark_NonSpacing:
    case QChar::Mark_SpacingCombining:
    case QChar::Mark_Enclosing:
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Other_Surrogate:
      return {};
    default:
      return QStringLiteral(" ");
  }
}

constexpr std::size_t latin1Zeichen = 0x100;

// What a character becomes in a SepaText, at most two.
struct Kurzersatz {
  std::array<QChar, 2> zeichen;
  int anzahl = 0;
};

QString sepaTextAllgemein(const QString& text) {
  const QString zusammengesetzt = text.normalized(QString::NormalizationForm_C);
  const QString bereinigt = TextBereinigen(UmlauteErsetzen(zusammengesetzt), false, QString());
  return blanksReduziert(ohneAeussereBlanks(transliteriert(bereinigt)));
}

// What the general way makes of each character of Latin-1 that stands between others.
std::array<Kurzersatz, latin1Zeichen> latin1Ersatz() {
  std::array<Kurzersatz, latin1Zeichen> tabelle;
  for (std::size_t i = 0; i < latin1Zeichen; ++i) {
    const QString text = sepaTextAllgemein(u'(' + QString(QChar(static_cast<char16_t>(i))) + u')');
    for (const QChar zeichen : text.sliced(1, text.size() - 2)) {
      tabelle.at(i).zeichen.at(static_cast<std::size_t>(tabelle.at(i).anzahl++)) = zeichen;
    }
  }
  return tabelle;
}

// Characters of Latin-1 do not combine with one another, so that a text of them can be done in one pass.
// nullopt when there is another character.
std::optional<QString> sepaTextLatin1(const QString& text) {
  static const std::array<Kurzersatz, latin1Zeichen> ersatz = latin1Ersatz();
  QString ergebnis(2 * text.size(), Qt::Uninitialized);
  QChar* const anfang = ergebnis.data();
  QChar* ende = anfang;
  for (const QChar zeichen : text) {
    if (zeichen.unicode() >= latin1Zeichen) {
      return std::nullopt;
    }
    const Kurzersatz& neu = ersatz[zeichen.unicode()];
    for (int i = 0; i < neu.anzahl; ++i) {
      const bool blankEntfaellt = neu.zeichen[i] == u' ' && (ende == anfang || ende[-1] == u' ');
      if (!blankEntfaellt) {
        *ende++ = neu.zeichen[i];
      }
    }
  }
  if (ende != anfang && ende[-1] == u' ') {
    --ende;
  }
  ergebnis.truncate(ende - anfang);
  return ergebnis;
}

bool bleibtInXml(QChar zeichen) {
  const char16_t c = zeichen.unicode();
  return istDruckbaresAscii(c) && c != u'&' && c != u'<' && c != u'>' && c != u'"' && c != u'\'';
}

}  // namespace

QString transliteriert(const QString& text) {
  QString ergebnis;
  ergebnis.reserve(text.size());
  for (const char32_t zeichen : text.toUcs4()) {
    if (istDruckbaresAscii(zeichen) && zeichen != U'<' && zeichen != U'>') {
      ergebnis += QChar(static_cast<char16_t>(zeichen));
    } else if (const std::optional<QString> ersatz = ausTabelle(zeichen)) {
      ergebnis += *ersatz;
    } else if (zeichen >= ersteNichtAscii) {
      ergebnis += nachArt(zeichen);
    }
  }
  return ergebnis;
}

QString SepaText(const QString& text) {
  const std::optional<QString> kurz = sepaTextLatin1(text);
  return kurz ? *kurz : sepaTextAllgemein(text);
}

QByteArray xmlInhalt(const QString& text) {
  if (std::all_of(text.begin(), text.end(), bleibtInXml)) {
    return text.toLatin1();
  }
  QByteArray inhalt;
  for (const char32_t zeichen : text.toUcs4()) {
    switch (zeichen) {
      case U'&':
        inhalt += "&amp;";
        break;
      case U'<':
        inhalt += "&lt;";
        break;
      case U'>':
        inhalt += "&gt;";
        break;
      case U'"':
        inhalt += "&quot;";
        break;
      case U'\'':
        inhalt += "&apos;";
        break;
      default:
        if (istDruckbaresAscii(zeichen)) {
          inhalt += static_cast<char>(zeichen);
          break;
        }
        inhalt += transliteriert(QString::fromUcs4(&zeichen, 1)).toLatin1();
    }
  }
  return inhalt;
}

}  // namespace pelvanto
