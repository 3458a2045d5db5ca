#include "support/funktionen_drucker.h"

#include <algorithm>
#include <utility>

#include "support/blanks.h"
#include "support/einzeilig.h"
#include "support/kuerzen.h"

namespace pelvanto {
namespace {

constexpr int kSeitenbreite = 297, kSeitenhoehe = 210;
constexpr int kRand = 20;
constexpr int kKopfhoehe = 21;
constexpr int kLaengsterText = 1000;

QString werbezeile() { return QStringLiteral("Pelvanto-Team"); }

}  // namespace

FunktionenDrucker::FunktionenDrucker(Drucker& drucker, const Uhr& uhr, const Prozesswerte& werte)
    : drucker_(drucker), uhr_(uhr), werte_(werte) {}

bool FunktionenDrucker::DruckerVorhanden(QString& name) const {
  try {
    name = drucker_.standarddrucker();
  } catch (const Druckfehler&) {
    name.clear();
  }
  return !name.isEmpty();
}

bool FunktionenDrucker::DruckSeiteBeginnen(int seite, const QString& titel, const QString& untertitel,
                                           Fussart fussart) {
  if (seite == 1) verwerfen();
  QString name;
  if (!DruckerVorhanden(name)) {
    if (dokument_) merken({kDruckerfehler, QStringLiteral("Der Drucker ist nicht mehr da")});
    return false;
  }
  LinkerRand = kRand;
  RechterRand = kSeitenbreite - kRand;
  KopfUnterkante = kKopfhoehe;
  FussOberkante = kSeitenhoehe - kRand;
  try {
    if (seite == 1) dokument_ = drucker_.dokument(titel);
    // A document that could not be begun prints nothing, on later pages too.
    if (dokument_) rahmen(seite, titel, untertitel, fussart);
    return dokument_ || ersterFehler_;
  } catch (const Druckfehler& fehler) {
    merken(fehler);
    return fehler.nummer == kDruckerfehler;
  }
}

void FunktionenDrucker::rahmen(int seite, const QString& titel, const QString& untertitel, Fussart fussart) {
  constexpr Druckschrift normal{9}, gross{12}, klein{8}, winzig{6};
  punkte_ = normal.punkte;

  const double breite = std::max(dokument_->textbreite(werte_.OrganisationsName, normal),
                                 dokument_->textbreite(werte_.ProjektZeile, normal));
  dokument_->text(RechterRand - breite, 11, werte_.OrganisationsName, normal);
  dokument_->text(RechterRand - breite, 15, werte_.ProjektZeile, normal);
  dokument_->text(LinkerRand, 10, titel, gross);
  dokument_->text(LinkerRand, 16, untertitel, normal);
  dokument_->linie(LinkerRand, KopfUnterkante, RechterRand, KopfUnterkante);

  dokument_->linie(LinkerRand, FussOberkante, RechterRand, FussOberkante);
  const int fusszeile = FussOberkante + 1;
  dokument_->text(LinkerRand, fusszeile, uhr_.jetzt().toString(QStringLiteral("dd.MM.yyyy  HH:mm")), klein);
  const QString seitentext = QStringLiteral("Seite   %1").arg(seite);
  dokument_->text((kSeitenbreite - dokument_->textbreite(seitentext, klein)) / 2, fusszeile, seitentext,
                  klein);
  const bool allein = fussart == Fussart::Gross;
  const QString zeile = allein ? werbezeile() : QStringLiteral("Programmierung: ") + werbezeile();
  const Druckschrift schrift = allein ? klein : winzig;
  dokument_->text(RechterRand - dokument_->textbreite(zeile, schrift), fusszeile, zeile, schrift);
  punkte_ = klein.punkte;
}

double FunktionenDrucker::TextDrucken(double x, double y, const QString& text, Druckausrichtung ausrichtung,
                                      int punkte, bool kursiv, double breite) {
  const QString zeile = gekuerzt(einzeilig(text), kLaengsterText);
  if (!dokument_ || ohneAeussereBlanks(zeile).isEmpty()) return 0;
  if (punkte >= 1) punkte_ = punkte;
  const Druckschrift schrift{punkte_, kursiv};
  try {
    const double ganze = dokument_->textbreite(zeile, schrift);
    if (ausrichtung == Druckausrichtung::Rechts) x -= ganze;
    if (ausrichtung == Druckausrichtung::Mitte) x += (breite - ganze) / 2;
    const double hoehe = dokument_->texthoehe(schrift);
    dokument_->text(x, y, passend(zeile, schrift, breite), schrift);
    return hoehe;
  } catch (const Druckfehler& fehler) {
    merken(fehler);
    return 0;
  }
}

// Smaller letters stand in the middle of the line's height.
double FunktionenDrucker::TextDruckenVor(double x, double y, const QString& text, int punkte, double breite,
                                         double platz) {
  const int kleinste = punkte - 3;
  const QString zeile = gekuerzt(einzeilig(text), kLaengsterText);
  if (!dokument_ || ohneAeussereBlanks(zeile).isEmpty()) return 0;
  punkte_ = punkte;
  try {
    Druckschrift schrift{punkte};
    const QString ganze = passend(zeile, schrift, breite);
    const double hoehe = dokument_->texthoehe(schrift);
    while (schrift.punkte > kleinste && dokument_->textbreite(ganze, schrift) > platz) --schrift.punkte;
    dokument_->text(x, y + (hoehe - dokument_->texthoehe(schrift)) / 2, passend(ganze, schrift, platz),
                    schrift);
    return hoehe;
  } catch (const Druckfehler& fehler) {
    merken(fehler);
    return 0;
  }
}

// The text, or what of it and "..." has room; a width of 0 is unlimited.
QString FunktionenDrucker::passend(QString text, Druckschrift schrift, double breite) const {
  if (breite <= 0 || dokument_->textbreite(text, schrift) <= breite) return text;
  const QString punktfolge = QStringLiteral("...");
  while (!text.isEmpty() && dokument_->textbreite(text + punktfolge, schrift) > breite) {
    text = gekuerzt(text, static_cast<int>(text.size()) - 1);
  }
  return text + punktfolge;
}

double FunktionenDrucker::Textbreite(const QString& text, int punkte) {
  try {
    return dokument_ ? dokument_->textbreite(text, {punkte}) : 0;
  } catch (const Druckfehler& fehler) {
    merken(fehler);
    return 0;
  }
}

void FunktionenDrucker::neueSeite() {
  if (dokument_) dokument_->neueSeite();
}

void FunktionenDrucker::dokumentBeenden() {
  const std::unique_ptr<Druckdokument> dokument = std::exchange(dokument_, nullptr);
  if (const std::optional<Druckfehler> fehler = std::exchange(ersterFehler_, std::nullopt)) {
    throw Druckfehler(*fehler);
  }
  if (dokument) dokument->beenden();
}

std::optional<Druckfehler> FunktionenDrucker::verwerfen() {
  dokument_.reset();
  return std::exchange(ersterFehler_, std::nullopt);
}

void FunktionenDrucker::merken(const Druckfehler& fehler) {
  if (!ersterFehler_) ersterFehler_ = fehler;
}

}  // namespace pelvanto
