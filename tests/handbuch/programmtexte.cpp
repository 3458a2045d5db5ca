#include "handbuch/programmtexte.h"

#include <QRegularExpression>
#include <QStringList>

#include <optional>

#include "handbuch/marken.h"

namespace programmtexte {
namespace {

using namespace Qt::StringLiterals;

constexpr QChar kPlatz(u'…');

// A text is a sum of operands. An operand with a literal is this literal, whatever is called on it; any other
// is a place where something comes in. Everything that is no part of a sum ends it.
class Leser {
 public:
  explicit Leser(const QByteArray& quelltext) : marken_(marken(quelltext)) {}

  std::vector<Absatz> alle() {
    while (stelle_ < marken_.size()) {  // a closing bracket too many ends nothing
      klammerinhalt({});
    }
    return std::move(absaetze_);
  }

 private:
  struct Summe {
    QString text;
    bool hatLiteral = false;
    int zeile = 0;
    std::optional<QString> operand;  // the literal of the operand that is being read
    bool operandOhneLiteral = false;
  };

  static bool beendetSumme(const Marke& marke) {
    static const QStringList zeichen{",",  ";",  "?",  ":",  "=",  "+=", "==", "!=", "<",
                                     "<=", ">=", "&&", "||", "<<", ">>", "{",  "}"};
    return marke.art == Markenart::Zeichen ? zeichen.contains(marke.text) : marke.text == "return"_L1;
  }

  // "protokoll_.fehler" for what stands before an opening bracket; empty where no name does.
  QString nameVor(std::size_t klammer) const {
    QString name;
    std::size_t i = klammer;
    if (i == 0 || marken_[i - 1].art != Markenart::Name) return name;
    name = marken_[--i].text;
    const bool teil = i > 1 && (marken_[i - 1].ist("."_L1) || marken_[i - 1].ist("->"_L1));
    if (teil && marken_[i - 2].art == Markenart::Name) name = marken_[i - 2].text + u'.' + name;
    return name;
  }

  // To the closing bracket, and behind it. Answers the literal where nothing else stands inside.
  std::optional<QString> klammerinhalt(const QString& aufruf) {
    const std::size_t anfang = stelle_;
    Summe summe;
    int argument = 0;
    while (stelle_ < marken_.size()) {
      const Marke& marke = marken_[stelle_];
      if (marke.ist(")"_L1) || marke.ist("]"_L1) || marke.ist("}"_L1)) break;
      if (marke.ist("("_L1) || marke.ist("["_L1) || marke.ist("{"_L1)) {
        klammer(summe, aufruf);
        continue;
      }
      if (beendetSumme(marke)) {
        aufnehmen(summe, aufruf, argument);
        argument += marke.ist(","_L1) ? 1 : 0;
      } else if (marke.ist("+"_L1)) {
        operandBeenden(summe);
      } else if (marke.art == Markenart::Literal) {
        if (!summe.hatLiteral && !summe.operand) summe.zeile = marke.zeile;
        if (!summe.operand) summe.operand = marke.text;
      } else {
        summe.operandOhneLiteral = true;
      }
      ++stelle_;
    }
    const bool nurLiteral = stelle_ == anfang + 1 && marken_[anfang].art == Markenart::Literal;
    if (!nurLiteral || !istHuelle(aufruf)) aufnehmen(summe, aufruf, argument);
    ++stelle_;
    return nurLiteral ? std::optional(marken_[anfang].text) : std::nullopt;
  }

  void klammer(Summe& summe, const QString& aufruf) {
    const bool geschweift = marken_[stelle_].ist("{"_L1);
    const int zeile = marken_[stelle_].zeile;
    const QString name = nameVor(stelle_++);
    // Braces without a name of their own belong to what is called around them.
    const std::optional<QString> literal = klammerinhalt(name.isEmpty() && geschweift ? aufruf : name);
    if (literal && istHuelle(name)) {
      if (!summe.hatLiteral && !summe.operand) summe.zeile = zeile;
      if (!summe.operand) summe.operand = *literal;
    } else {
      summe.operandOhneLiteral = true;
    }
    if (geschweift && stelle_ < marken_.size() && !marken_[stelle_].ist("."_L1)) summe = {};
  }

  static bool istHuelle(const QString& name) {
    return name == "QStringLiteral"_L1 || name == "QString"_L1 || name == "QLatin1StringView"_L1;
  }

  static void operandBeenden(Summe& summe) {
    if (summe.operand) {
      summe.text += *summe.operand;
      summe.hatLiteral = true;
    } else if (summe.operandOhneLiteral) {
      summe.text += kPlatz;
    }
    summe.operand.reset();
    summe.operandOhneLiteral = false;
  }

  void aufnehmen(Summe& summe, const QString& aufruf, int argument) {
    operandBeenden(summe);
    if (summe.hatLiteral) {
      for (const QString& absatz : summe.text.split(u'\n')) {
        const QString text = vereinheitlicht(absatz);
        if (!text.isEmpty()) absaetze_.push_back({text, summe.zeile, aufruf, argument});
      }
    }
    summe = {};
  }

  std::vector<Marke> marken_;
  std::size_t stelle_ = 0;
  std::vector<Absatz> absaetze_;
};

}  // namespace

QString vereinheitlicht(QString text) {
  static const QRegularExpression platz(u"%L?[1-9]"_s);
  return text.replace(platz, QString(kPlatz)).simplified();
}

std::vector<Absatz> lesen(const QByteArray& quelltext) { return Leser(quelltext).alle(); }

}  // namespace programmtexte
