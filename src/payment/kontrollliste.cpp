#include "payment/kontrollliste.h"

#include <optional>
#include <utility>

#include "payment/iban.h"
#include "payment/zahlungsdatei.h"
#include "support/zahlenformat.h"

namespace pelvanto {

namespace {

// The document: where its next line stands, and the pages it needs.
class Kontrollblatt {
 public:
  Kontrollblatt(FunktionenDrucker& druck, QString titel, QString untertitel)
      : druck_(druck), titel_(std::move(titel)), untertitel_(std::move(untertitel)) {}

  // False: the frame of the page has failed.
  bool seiteBeginnen() {
    if (!druck_.DruckSeiteBeginnen(++seite_, titel_, untertitel_, Fussart::Gross)) return false;
    y_ = druck_.KopfUnterkante + 3;
    return true;
  }
  // Begins the next page where the line has no room on this one.
  bool platzSchaffen() {
    if (y_ <= druck_.FussOberkante - 5) return true;
    druck_.neueSeite();
    return seiteBeginnen();
  }
  void text(int x, const QString& text, double breite = 0,
            Druckausrichtung ausrichtung = Druckausrichtung::Links) {
    druck_.TextDrucken(x, y_, text, ausrichtung, kPunkte, false, breite);
  }
  // The room of an address reaches behind the amount: a very long one must not lie on it.
  void adresseUndBetrag(const QString& adresse, Waehrung betrag, const Zahlenzeichen& zeichen) {
    constexpr int kAdresse = 90, kAdressbreite = 100, kBetragEnde = 180, kTextabstand = 1;
    const QString zahl = Zahlenformat::waehrung(betrag, zeichen);
    const double platz = kBetragEnde - druck_.Textbreite(zahl, kPunkte) - kTextabstand - kAdresse;
    druck_.TextDruckenVor(kAdresse, y_, adresse, kPunkte, kAdressbreite, platz);
    text(kBetragEnde, zahl, 0, Druckausrichtung::Rechts);
  }
  void zeileFertig() {
    constexpr int kZeile = 5, kLuecke = 3, kZeilenBisLuecke = 5;
    y_ += ++zeilen_ % kZeilenBisLuecke == 0 ? kZeile + kLuecke : kZeile;
  }
  int zeilen() const { return zeilen_; }

 private:
  static constexpr int kPunkte = 9;
  FunktionenDrucker& druck_;
  QString titel_, untertitel_;
  int seite_ = 0;
  int zeilen_ = 0;
  int y_ = 0;  // mm
};

// Where the columns stand, mm.
constexpr int kName = 20, kNamensbreite = 70;
constexpr int kIBAN = 190;
constexpr int kBIC = 240;

// Ends early where a page cannot be begun; the document knows why.
void ueberweisungenDrucken(Kontrollblatt& blatt, const UeberweisungT& tabelle, Waehrung summe,
                           const Zahlenzeichen& zeichen) {
  for (const Ueberweisung& ueberweisung : tabelle) {
    if (!blatt.platzSchaffen()) return;
    blatt.text(kName, ueberweisung.KundeName, kNamensbreite);
    blatt.adresseUndBetrag(ueberweisung.KundeAdresse, ueberweisung.EinzelBetrag, zeichen);
    blatt.text(kIBAN, IBANGruppieren(ueberweisung.KundeIBAN));
    blatt.text(kBIC, ueberweisung.KundeBIC);
    blatt.zeileFertig();
  }
  if (!blatt.platzSchaffen()) return;
  blatt.adresseUndBetrag(QStringLiteral("%1 Zeilen").arg(blatt.zeilen()), summe, zeichen);
}

}  // namespace

void Kontrollliste::anbieten(const QString& pfad, const UeberweisungT& tabelle, const QString& eigeneIBAN,
                             const QString& eigeneBIC) {
  const QString frage = QStringLiteral("Die Datei ") + pfad +
                        QStringLiteral(
                            " wurde erstellt. Soll eine Liste über alle Überweisungen in dieser Datei "
                            "erstellt werden?");
  if (meldungen_.zeigen({frage, Symbol::Frage, Knoepfe::JaNein}) != Antwort::Ja) return;
  try {
    drucken(pfad, tabelle, eigeneIBAN, eigeneBIC);
  } catch (const Druckfehler& fehler) {
    druck_.verwerfen();
    protokollieren(fehler);
    meldungen_.zeigen(
        {QStringLiteral(
             "Die Liste über die Überweisungen konnte nicht gedruckt werden: %1 (Fehler %2).\n\n"
             "Die Zahlungsdatei %3 ist davon nicht betroffen: Sie ist vollständig und bleibt "
             "erhalten. Erstellen Sie für den Ausdruck keine zweite Datei: Die Überweisungen stehen "
             "auch in der Liste, die der Druckknopf von Schritt 5 druckt.")
             .arg(fehler.beschreibung, QString::number(fehler.nummer), pfad),
         Symbol::Kritisch, Knoepfe::Ok, QStringLiteral("Fehler")});
  }
}

void Kontrollliste::drucken(const QString& pfad, const UeberweisungT& tabelle, const QString& eigeneIBAN,
                            const QString& eigeneBIC) {
  const QString abstand(10, u' ');
  const std::optional<Waehrung> summe = Gesamtsumme(tabelle);
  Kontrollblatt blatt(druck_, QStringLiteral("Überweisung-Datei") + abstand + pfad,
                      IBANGruppieren(eigeneIBAN) + abstand + eigeneBIC);
  if (!summe || !blatt.seiteBeginnen()) {
    if (const std::optional<Druckfehler> fehler = druck_.verwerfen()) protokollieren(*fehler);
    meldungen_.zeigen({QStringLiteral("Die Liste kann nicht gedruckt werden!"), Symbol::Kritisch});
    return;
  }
  ueberweisungenDrucken(blatt, tabelle, *summe, typen_.zahlenzeichen());
  druck_.dokumentBeenden();  // throws what has failed on the way
}

void Kontrollliste::protokollieren(const Druckfehler& fehler) {
  protokoll_.fehler(fehlerbericht({fehler.nummer, fehler.beschreibung}, QStringLiteral("Kontrollliste"),
                                  QStringLiteral("Zahlungsverkehr")));
}

}  // namespace pelvanto
