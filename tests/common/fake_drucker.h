#pragma once

#include <functional>
#include <vector>

#include "seams/drucker.h"

namespace pelvanto::test {

struct Textstelle {
  double x = 0, y = 0;  // mm
  QString text;
  Druckschrift schrift;
};
struct Strich {
  double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
};
struct Druckseite {
  std::vector<Textstelle> texte;
  std::vector<Strich> striche;
};
struct Gedrucktes {
  QString name;
  std::vector<Druckseite> seiten{1};
  bool beendet = false;    // went to the printer
  bool verworfen = false;  // was thrown away
};

// Keeps every document. Each character is 0.2 mm wide for each point of its size, a 9 point line 3.55 mm
// high.
class FakeDrucker : public Drucker {
 public:
  static double breite(const QString& text, Druckschrift schrift) {
    return 0.2 * schrift.punkte * static_cast<double>(text.size());
  }
  static double hoehe(Druckschrift schrift) { return schrift.punkte * 3.55 / 9; }

  QString standarddrucker() const override { return name; }
  std::unique_ptr<Druckdokument> dokument(const QString& titel) override {
    stoeren("dokument");
    dokumente.push_back({titel});
    return std::make_unique<Dokument>(*this, dokumente.size() - 1);
  }

  QString name = QStringLiteral("Laser");  // empty: no printer
  std::vector<Gedrucktes> dokumente;
  // Called before each operation ("dokument", "text", "linie", "neueSeite", "beenden"); may throw.
  std::function<void(const char*)> stoerung;

 private:
  class Dokument : public Druckdokument {
   public:
    Dokument(FakeDrucker& drucker, std::size_t nummer) : drucker_(drucker), nummer_(nummer) {}
    Dokument(const Dokument&) = delete;
    Dokument& operator=(const Dokument&) = delete;
    ~Dokument() override { gedrucktes().verworfen = !gedrucktes().beendet; }
    double textbreite(const QString& text, Druckschrift schrift) const override {
      return breite(text, schrift);
    }
    double texthoehe(Druckschrift schrift) const override { return hoehe(schrift); }
    void text(double x, double y, const QString& text, Druckschrift schrift) override {
      drucker_.stoeren("text");
      gedrucktes().seiten.back().texte.push_back({x, y, text, schrift});
    }
    void linie(double x1, double y1, double x2, double y2) override {
      drucker_.stoeren("linie");
      gedrucktes().seiten.back().striche.push_back({x1, y1, x2, y2});
    }
    void neueSeite() override {
      drucker_.stoeren("neueSeite");
      gedrucktes().seiten.emplace_back();
    }
    void beenden() override {
      drucker_.stoeren("beenden");
      gedrucktes().beendet = true;
    }

   private:
    Gedrucktes& gedrucktes() { return drucker_.dokumente[nummer_]; }
    FakeDrucker& drucker_;
    std::size_t nummer_;
  };
  void stoeren(const char* vorgang) {
    if (stoerung) stoerung(vorgang);
  }
};

}  // namespace pelvanto::test
