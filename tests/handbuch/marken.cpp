#include "handbuch/marken.h"

#include <QRegularExpression>

namespace programmtexte {
namespace {

using namespace Qt::StringLiterals;

// Escapes as the sources use them; others stay what they are.
QString ohneMaskierung(const QString& roh) {
  QString text;
  for (qsizetype i = 0; i < roh.size(); ++i) {
    if (roh[i] != u'\\' || i + 1 == roh.size()) {
      text += roh[i];
      continue;
    }
    const QChar zeichen = roh[++i];
    text += zeichen == u'n' ? u'\n' : zeichen == u'r' ? u'\r' : zeichen == u't' ? u'\t' : zeichen;
  }
  return text;
}

// One expression for all pieces; the first group that has matched says what it is.
const QRegularExpression& stueck() {
  static const QRegularExpression muster(
      uR"re((?<weg>\s+|//[^\n]*|/\*.*?\*/|(?:(?<=\n)|^)[ \t]*#(?:[^\n\\]|\\.)*))re"
      uR"re(|(?:u8|[uUL])?R"(?<klammer>[^(]*)\((?<roh>.*?)\)\k<klammer>"(?:_\w+)?)re"
      uR"re(|(?:u8|[uUL])?"(?<text>(?:[^"\\\n]|\\.)*)"(?:_\w+)?)re"
      uR"re(|(?:u8|[uUL])?'(?<zeichen>(?:[^'\\\n]|\\.)+)')re"
      uR"re(|(?<zahl>\d(?:[\w.]|'\d)*)|(?<name>\w+))re"
      uR"re(|(?<rest>::|->|\+\+|--|<<|>>|&&|\|\||[-+*/%=!<>]=|.))re"_s,
      QRegularExpression::DotMatchesEverythingOption | QRegularExpression::UseUnicodePropertiesOption);
  return muster;
}

}  // namespace

std::vector<Marke> marken(const QByteArray& quelltext) {
  const QString quelle = QString::fromUtf8(quelltext);
  std::vector<Marke> alle;
  int zeile = 1;
  bool folgt = false;  // nothing stands between the last literal and this piece
  for (auto funde = stueck().globalMatch(quelle); funde.hasNext();) {
    const QRegularExpressionMatch fund = funde.next();
    const int hier = zeile;
    zeile += static_cast<int>(fund.capturedView().count(u'\n'));
    if (fund.hasCaptured(u"weg")) continue;
    const bool roh = fund.hasCaptured(u"roh"), text = fund.hasCaptured(u"text");
    if (roh || text) {
      const QString wert = roh ? fund.captured(u"roh") : ohneMaskierung(fund.captured(u"text"));
      if (folgt) {
        alle.back().text += wert;
      } else {
        alle.push_back({Markenart::Literal, wert, hier});
      }
      folgt = true;
      continue;
    }
    folgt = false;
    if (fund.hasCaptured(u"zeichen")) {
      alle.push_back({Markenart::Literal, ohneMaskierung(fund.captured(u"zeichen")), hier});
    } else if (fund.hasCaptured(u"rest")) {
      alle.push_back({Markenart::Zeichen, fund.captured(u"rest"), hier});
    } else {
      alle.push_back({Markenart::Name, fund.captured(), hier});
    }
  }
  return alle;
}

}  // namespace programmtexte
