#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "seams/anwendungen.h"
#include "seams/drucker.h"
#include "seams/gebietsschema.h"
#include "seams/meldungen.h"
#include "seams/oberflaeche.h"
#include "seams/real/echtes_dateisystem.h"
#include "seams/uhr.h"
#include "steps/umgebung.h"

namespace bench {

inline constexpr int year = 2026;

// A folder with database and settings for a number of members, and the program's services on real files.
// Message boxes are kept instead of shown.
class ProgramFolder {
 public:
  ProgramFolder(const std::filesystem::path& folder, std::size_t members);
  ~ProgramFolder();

  pelvanto::Umgebung& services() { return *services_; }
  // Boxes that a run without trouble does not show.
  std::string complaints() const;
  void deletePaymentFiles() const;

 private:
  class Clock : public pelvanto::Uhr {
   public:
    QDateTime jetzt() const override { return {QDate(year, 3, 16), QTime(8, 9, 10)}; }
    void warten(int) override {}
  };
  class Boxes : public pelvanto::Meldungen {
   public:
    pelvanto::Antwort zeigen(const pelvanto::Meldung& box) override;
    std::optional<QString> eingeben(const pelvanto::Eingabe&) override { return std::nullopt; }
    std::vector<pelvanto::Meldung> shown;
  };
  class Surface : public pelvanto::Oberflaeche {
   public:
    void nachrichtenVerarbeiten() override {}
    void sanduhr(bool) override {}
    void fortschritt(int, int) override {}
  };
  class German : public pelvanto::Gebietsschema {
   public:
    pelvanto::Zahlenzeichen zahlenzeichen() const override { return {}; }
    int landesvorwahl() const override { return 43; }
  };

  class NoPrinter : public pelvanto::Drucker {
   public:
    QString standarddrucker() const override { return {}; }
    std::unique_ptr<pelvanto::Druckdokument> dokument(const QString&) override {
      throw pelvanto::Druckfehler{pelvanto::kDruckerfehler, {}};
    }
  };
  class NoPrograms : public pelvanto::Anwendungen {
   public:
    int oeffnen(const QString&, int) override { return pelvanto::kKeineAnwendung; }
    pelvanto::Dateifehler starten(const QString&, const QString&) override { return {}; }
    QString schreibtisch() const override { return {}; }
  };

  std::filesystem::path folder_;
  Clock clock_;
  Boxes boxes_;
  Surface surface_;
  German numbers_;
  pelvanto::EchtesDateisystem files_;
  NoPrinter printer_;
  NoPrograms programs_;
  std::unique_ptr<pelvanto::Umgebung> services_;
};

}  // namespace bench
