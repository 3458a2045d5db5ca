#include "support/ini_text.h"

#include "support/windows1252.h"

namespace pelvanto {

namespace {

bool istLeerraum(char zeichen) { return zeichen == ' ' || zeichen == '\t' || zeichen == '\r'; }

bool gleich(const QString& links, const QString& rechts) {
  return links.compare(rechts.trimmed(), Qt::CaseInsensitive) == 0;
}

QString ohneAnfuehrungszeichen(const QString& text) {
  if (text.size() < 2 || text.front() != text.back() || (text.front() != u'"' && text.front() != u'\'')) {
    return text;
  }
  return text.mid(1, text.size() - 2);
}

QByteArray einzeilig(const QString& text) {
  QByteArray bytes = nachWindows1252(text);
  for (const char zeichen : {'\r', '\n', '\0'}) {
    bytes.replace(zeichen, ' ');
  }
  return bytes;
}

}  // namespace

INIText::Bereich INIText::getrimmt(Bereich bereich) const {
  while (bereich.anfang < bereich.ende && istLeerraum(bytes_.at(bereich.anfang))) {
    ++bereich.anfang;
  }
  while (bereich.ende > bereich.anfang && istLeerraum(bytes_.at(bereich.ende - 1))) {
    --bereich.ende;
  }
  return bereich;
}

QString INIText::text(Bereich bereich) const {
  return ausWindows1252(QByteArrayView(bytes_).sliced(bereich.anfang, bereich.ende - bereich.anfang));
}

INIText::Fund INIText::suchen(const QString& Abschnitt, const QString& Schluessel) const {
  Fund fund;
  for (qsizetype anfang = 0; anfang < bytes_.size();) {
    const qsizetype umbruch = bytes_.indexOf('\n', anfang);
    const qsizetype naechste = umbruch < 0 ? bytes_.size() : umbruch + 1;
    const Bereich zeile = getrimmt({anfang, umbruch < 0 ? bytes_.size() : umbruch});
    anfang = naechste;
    if (zeile.anfang == zeile.ende) {
      continue;
    }
    if (bytes_.at(zeile.anfang) == '[') {
      if (fund.anhang) {
        break;
      }
      const qsizetype klammer = text(zeile).lastIndexOf(u']');
      if (klammer > 0 && gleich(text({zeile.anfang + 1, zeile.anfang + klammer}).trimmed(), Abschnitt)) {
        fund.anhang = naechste;
      }
      continue;
    }
    if (!fund.anhang) {
      continue;
    }
    fund.anhang = naechste;
    const qsizetype zeichen = bytes_.indexOf('=', zeile.anfang);
    if (bytes_.at(zeile.anfang) == ';' || zeichen < 0 || zeichen >= zeile.ende) {
      continue;
    }
    if (gleich(text(getrimmt({zeile.anfang, zeichen})), Schluessel)) {
      fund.wert = getrimmt({zeichen + 1, zeile.ende});
      break;
    }
  }
  return fund;
}

std::optional<QString> INIText::wert(const QString& Abschnitt, const QString& Schluessel) const {
  const Fund fund = suchen(Abschnitt, Schluessel);
  return fund.wert ? std::optional(ohneAnfuehrungszeichen(text(*fund.wert))) : std::nullopt;
}

QByteArray INIText::zeilenende() const {
  const qsizetype umbruch = bytes_.indexOf('\n');
  const bool nurLF = umbruch >= 0 && (umbruch == 0 || bytes_.at(umbruch - 1) != '\r');
  return nurLF ? "\n" : "\r\n";
}

void INIText::setzen(const QString& Abschnitt, const QString& Schluessel, const QString& Wert) {
  const Fund fund = suchen(Abschnitt, Schluessel);
  const QByteArray neuerWert = einzeilig(Wert);
  if (fund.wert) {
    bytes_.replace(fund.wert->anfang, fund.wert->ende - fund.wert->anfang, neuerWert);
    return;
  }
  const QByteArray umbruch = zeilenende();
  const qsizetype stelle = fund.anhang.value_or(bytes_.size());
  QByteArray neu;
  if (stelle > 0 && bytes_.at(stelle - 1) != '\n') {
    neu = umbruch;
  }
  if (!fund.anhang) {
    neu += '[' + einzeilig(Abschnitt) + ']' + umbruch;
  }
  neu += einzeilig(Schluessel) + '=' + neuerWert + umbruch;
  bytes_.insert(stelle, neu);
}

}  // namespace pelvanto
