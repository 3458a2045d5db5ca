#include "support/funktionen_drucker.h"

#include <algorithm>
#include <utility>

#include "support/blanks.h"

namespace pelvanto {
namespace {

constexpr int kSeitenbreite = 297, kSeitenhoehe = 210;
constexpr int kRand = 20;
constexpr int kKopfhoehe = 21;
constexpr qsizetype kLaengsterText = 1000;

QString werbezeile() { return QStringLiteral("Pelvanto für Tolvana"); }

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
  QString name;
  if (!DruckerVorhanden(name)) return false;
  try {
    if (seite == 1) {
      verwerfen();
      dokument_ = drucker_.dokument(titel);
    }
    rahmen(seite, titel, untertitel, fussart);
    return true;
  } catch (const Druckfehler& fehler) {
    merken(fehler);
    return fehler.nummer == kDruckerfehler;
  }
}

void FunktionenDrucker::rahmen(int seite, const QString& titel, const QString& untertitel, Fussart fussart) {
  constexpr Druckschrift normal{9}, gross{12}, klein{8}, winzig{6};
  LinkerRand = kRand;
  RechterRand = kSeitenbreite - kRand;
  KopfUnterkante = kKopfhoehe;
  FussOberkante = kSeitenhoehe - kRand;
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
  if (!dokument_ || ohneAeussereBlanks(text).isEmpty()) return 0;
  if (punkte >= 1) punkte_ = punkte;
  const Druckschrift schrift{punkte_, kursiv};
  try {
    QString gedruckt = text.left(kLaengsterText);
    const double ganze = dokument_->textbreite(gedruckt, schrift);
    if (ausrichtung == Druckausrichtung::Rechts) x -= ganze;
    if (ausrichtung == Druckausrichtung::Mitte) x += (breite - ganze) / 2;
    if (breite > 0 && ganze > breite) {
      const QString punktfolge = QStringLiteral("...");
      while (!gedruckt.isEmpty() && dokument_->textbreite(gedruckt + punktfolge, schrift) > breite) {
        gedruckt.chop(1);
      }
      gedruckt += punktfolge;
    }
    const double hoehe = dokument_->texthoehe(schrift);
    dokument_->text(x, y, gedruckt, schrift);
    return hoehe;
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
  if (const std::optional<Druckfehler> fehler = std::exchange(ersterFehler_, std::nullopt)) throw *fehler;
  if (dokument) dokument->beenden();
}

void FunktionenDrucker::verwerfen() {
  dokument_.reset();
  ersterFehler_.reset();
}

void FunktionenDrucker::merken(const Druckfehler& fehler) {
  if (!ersterFehler_) ersterFehler_ = fehler;
}

}  // namespace pelvanto
