#include "lists/adressen_fragen.h"

#include "lists/adressen_felder.h"
#include "support/blanks.h"

using namespace Qt::StringLiterals;

namespace pelvanto {

Familienantwort familieErfragen(Meldungen& meldungen, const QString& namen) {
  const auto fragen = [&](const QString& anrede, Knoepfe knoepfe, const QString& hinweis = QString()) {
    return meldungen.zeigen({namen +
                                 u" enthält 'u.' oder 'und' obwohl keines der Merkmale 'Familie', 'Firma', "
                                 u"'keine Anrede' markiert ist.\r\n\r\nSoll die Anrede '"_s +
                                 anrede + u"' angewendet werden?"_s + hinweis,
                             Symbol::Frage, knoepfe, u"Stammdaten ändern"_s});
  };
  const Antwort familie = fragen(u"Familie"_s, Knoepfe::JaNeinAbbrechen,
                                 u"\r\n\r\nWenn Sie abbrechen wählen, wird diese Frage bei den folgenden "
                                 u"Adressen übergangen, bis das Programm neu gestartet wird."_s);
  if (familie == Antwort::Ja) return Familienantwort::Familie;
  if (familie == Antwort::Abbrechen) return Familienantwort::NichtMehrFragen;
  if (fragen(u"Firma"_s, Knoepfe::JaNein) == Antwort::Ja) return Familienantwort::Firma;
  if (fragen(u"keine Anrede"_s, Knoepfe::JaNein) == Antwort::Ja) return Familienantwort::KeineAnrede;
  return Familienantwort::NichtsDavon;
}

std::optional<QString> korrekturErfragen(Meldungen& meldungen, const Person& person, Adressproblem problem,
                                         const QString& adresse) {
  const QString satz = problem == Adressproblem::PLZOrtZuLang
                           ? u"Postleitzahl und Ort sind zusammen länger als 40 Zeichen."_s
                           : u"Das Feld 'PLZ' ist länger als 7 Zeichen."_s;
  std::optional<QString> antwort =
      meldungen.eingeben({meldungsanfang(person) + u"ist ein mögliches Problem aufgetaucht. "_s + satz +
                              u" Bitte korrigieren Sie die Stammdatendaten.\r\n\r\n"_s +
                              u"Die Korrektur wird erst bei der nächsten Verwendung der Adresse wirksam)."_s,
                          u"Adresse sollte korrigiert werden"_s, adresse});
  if (antwort && ohneAeussereBlanks(*antwort).isEmpty()) antwort.reset();
  return antwort;
}

}  // namespace pelvanto
