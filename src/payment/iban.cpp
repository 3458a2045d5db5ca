#include "payment/iban.h"

#include <QLatin1StringView>

#include <array>

#include "support/blanks.h"

namespace pelvanto {

namespace {

bool istZiffer(QChar zeichen) { return zeichen >= u'0' && zeichen <= u'9'; }

bool istGrossbuchstabe(QChar zeichen) { return zeichen >= u'A' && zeichen <= u'Z'; }

// Where bank code and account number stand in an IBAN of a country that is checked.
struct Landesform {
  QLatin1StringView land;
  int stellenBankleitzahl;
  int stellenKonto;
};
constexpr std::array<Landesform, 2> landesformen = {
    {{QLatin1StringView("AT"), 5, 11}, {QLatin1StringView("DE"), 8, 10}}};
constexpr int laengeKopf = 4;  // country and check digits

QString buchstabenAlsZahlen(const QString& text) {
  QString zahlen;
  for (const QChar zeichen : text) {
    zahlen += istGrossbuchstabe(zeichen) ? QString::number(zeichen.unicode() - u'A' + 10) : QString(zeichen);
  }
  return zahlen;
}

}  // namespace

QString IBANGruppieren(const QString& iban) {
  const QString text = ohneAeussereBlanks(iban);
  QString ergebnis;
  for (qsizetype i = 0; i < text.size(); ++i) {
    ergebnis += text.at(i);
    if (i % 4 == 3) {
      ergebnis += u' ';
    }
  }
  return ergebnis;
}

QString IBANZeichenFiltern(const QString& getippt) {
  QString erlaubt;
  for (const QChar zeichen : getippt) {
    const bool klein = zeichen >= u'a' && zeichen <= u'z';
    const QChar gross = klein ? QChar(zeichen.unicode() - u'a' + u'A') : zeichen;
    if (istZiffer(gross) || istGrossbuchstabe(gross)) erlaubt += gross;
  }
  return erlaubt;
}

bool IBANBlankFaellig(qsizetype laenge) {
  constexpr int kMitBlank = 5;
  constexpr int kLetzterBlock = 29;
  return laenge <= kLetzterBlock && laenge % kMitBlank == kMitBlank - 1;
}

IBANErgebnis IBANPruefen(const QString& text, QString& bereinigt) {
  if (QString(text).remove(u' ').isEmpty()) {
    return IBANErgebnis::Leer;
  }
  bereinigt.clear();
  for (const QChar zeichen : text) {
    if (istZiffer(zeichen) || istGrossbuchstabe(zeichen)) {
      bereinigt += zeichen;
    }
  }
  for (const Landesform& form : landesformen) {
    const QString land = form.land;
    if (!bereinigt.startsWith(land) ||
        bereinigt.size() < laengeKopf + form.stellenBankleitzahl + form.stellenKonto) {
      continue;
    }
    const QString erwartet =
        IBANBerechnen(land, bereinigt.mid(laengeKopf, form.stellenBankleitzahl),
                      bereinigt.right(form.stellenKonto), form.stellenBankleitzahl, form.stellenKonto);
    return erwartet.mid(2, 2) == bereinigt.mid(2, 2) ? IBANErgebnis::Richtig : IBANErgebnis::Falsch;
  }
  return IBANErgebnis::NichtGeprueft;
}

QString IBANBerechnen(const QString& land, const QString& bankleitzahl, const QString& konto,
                      int stellenBankleitzahl, int stellenKonto) {
  const QString kontoteil =
      bankleitzahl.rightJustified(stellenBankleitzahl, u'0') + konto.rightJustified(stellenKonto, u'0');
  const int rest = ModuloRest(buchstabenAlsZahlen(kontoteil + land) + QStringLiteral("00"), 97);
  return land + QString::number(98 - rest).rightJustified(2, u'0') + kontoteil;
}

int ModuloRest(const QString& dividend, int divisor) {
  if (divisor == 0) {
    return -1;
  }
  qint64 rest = 0;
  for (const QChar zeichen : dividend) {
    if (istZiffer(zeichen)) {
      rest = (rest * 10 + (zeichen.unicode() - u'0')) % divisor;
    }
  }
  const bool negativ = dividend.startsWith(u'-');
  return static_cast<int>(negativ && rest != 0 ? divisor - rest : rest);
}

}  // namespace pelvanto
