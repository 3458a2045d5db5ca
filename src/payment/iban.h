#pragma once

#include <QString>

namespace pelvanto {

// Blocks of four, a blank after each full block, also the last. (Paper form; the electronic form is bare.)
QString IBANGruppieren(const QString& iban);

// What typed characters become in the entry field: digits and capitals stay, small letters become capitals,
// everything else is dropped.
QString IBANZeichenFiltern(const QString& getippt);
// Whether a text of this length in the entry field ends in a full block and gets the blank behind it.
bool IBANBlankFaellig(qsizetype laenge);

enum class IBANErgebnis { Leer, NichtGeprueft, Richtig, Falsch };
// Checks Austrian and German IBANs (ISO 13616, ISO 7064 MOD 97-10); `bereinigt` gets the bare IBAN unless
// the result is Leer.
IBANErgebnis IBANPruefen(const QString& text, QString& bereinigt);
QString IBANBerechnen(const QString& land, const QString& bankleitzahl, const QString& konto,
                      int stellenBankleitzahl, int stellenKonto);
// Remainder of an exact decimal number (digits) by a divisor, 0 to divisor - 1; -1 for divisor 0.
int ModuloRest(const QString& dividend, int divisor);

}  // namespace pelvanto
