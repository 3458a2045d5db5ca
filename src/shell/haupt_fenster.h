#pragma once

#include <QWidget>

#include <array>

#include "shell/ablauf.h"
#include "steps/seiten.h"

namespace pelvanto {

class Fortschritt;
class SeitenFenster;

// The one window: a wizard of six pages that are passed in order and never backwards. It owns the page
// models, and stands between them and the controls.
class HauptFenster : public QWidget, private Ablauf {
  Q_OBJECT
 public:
  // `umgebung` must outlive the window.
  explicit HauptFenster(Umgebung& umgebung);
  ~HauptFenster() override;

  // Reads the settings, centres the window, and looks for the contact database. False after the message why
  // it cannot be worked on: the program has to end, and the window must not be shown.
  bool starten();

  // Shows how far long work is, see Oberflaeche::fortschritt.
  void fortschrittZeigen(int nummer, int anzahl);
  // The models as the controls stand now.
  const Seiten& seiten();
  // From 0 (step 1) to 5 (step 5).
  int aktuelleSeite() const { return aktuelleSeite_; }
  // The program has met its end: nothing more is done or saved.
  bool beendet() const { return beendet_; }

 protected:
  void closeEvent(QCloseEvent* ereignis) override;
  void resizeEvent(QResizeEvent* ereignis) override;
  void changeEvent(QEvent* ereignis) override;
  void contextMenuEvent(QContextMenuEvent* ereignis) override;

 private:
  void ausfuehren(const std::function<void(Umgebung&, Seiten&)>& handlung) override;
  void ungestoertAusfuehren(const std::function<void(Umgebung&, Seiten&)>& handlung) override;
  void weiter() override;

  void hilfeAnbieten();
  void ueberZeigen();
  void danebenAusfuehren(void (*handlung)(Umgebung&));
  void eintragen();
  void zeigen();
  void betragsfeldVerlassen();
  // Runs `handlung`; reports what it throws, and ends the program where it must.
  void abgesichert(const std::function<void()>& handlung);
  void weiterSperren();
  void fehlerMelden(int nummer, const QString& beschreibung);
  void zentrieren();
  void auswahlFaerben();

  Umgebung& umgebung_;
  Seiten seiten_;
  std::array<SeitenFenster*, 6> fenster_{};
  Fortschritt* fortschritt_;
  int aktuelleSeite_ = 0;
  bool laeuft_ = false;
  bool schliessenGewuenscht_ = false;
  bool beendet_ = false;
};

}  // namespace pelvanto
