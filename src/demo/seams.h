#pragma once

#include <QLocale>

#include "seams/anwendungen.h"
#include "seams/gebietsschema.h"
#include "seams/meldungen.h"
#include "seams/real/echte_meldungen.h"
#include "seams/real/landesvorwahl.h"
#include "seams/uhr.h"

namespace pelvanto::vorfuehrung {

// Prints every message box and answers it: with OK; with Yes where the control list or a CSV file is offered;
// else with No.
class GedruckteMeldungen : public Meldungen {
 public:
  Antwort zeigen(const Meldung& meldung) override;
  // Printed too, and cancelled.
  std::optional<QString> eingeben(const Eingabe& eingabe) override;

  int anzahl = 0;
};

// Opens the real boxes as well, and leaves a picture of each: "ORDNER/meldung-NN-TITEL-hell-100.png", ...
class FotografierteMeldungen : public GedruckteMeldungen {
 public:
  explicit FotografierteMeldungen(QString ordner) : ordner_(std::move(ordner)) {}
  Antwort zeigen(const Meldung& meldung) override;
  std::optional<QString> eingeben(const Eingabe& eingabe) override;

 private:
  void beimOeffnenFotografieren(const QString& titel);

  EchteMeldungen echte_;
  QString ordner_;
};

// The computer's clock, or one that stands still at `fest` where that is valid.
class Vorfuehruhr : public Uhr {
 public:
  explicit Vorfuehruhr(QDateTime fest) : fest_(std::move(fest)) {}
  QDateTime jetzt() const override;
  void warten(int millisekunden) override;

 private:
  QDateTime fest_;
};

// Nothing is opened or started; what would go to the desktop lies in `ordner`.
class OrdnerAnwendungen : public Anwendungen {
 public:
  explicit OrdnerAnwendungen(QString ordner) : ordner_(std::move(ordner)) {}
  int oeffnen(const QString&, int) override { return kKeineAnwendung; }
  Dateifehler starten(const QString&, const QString&) override { return {}; }
  QString schreibtisch() const override { return ordner_; }

 private:
  QString ordner_;
};

// Number characters of a language that is asked for.
class Sprachschema : public Gebietsschema {
 public:
  explicit Sprachschema(const QLocale& sprache) : sprache_(sprache) {}
  Zahlenzeichen zahlenzeichen() const override;
  int landesvorwahl() const override { return landesvorwahlVon(sprache_); }

 private:
  QLocale sprache_;
};

}  // namespace pelvanto::vorfuehrung
