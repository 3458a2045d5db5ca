#pragma once

#include <QList>

#include <functional>
#include <vector>

#include "shell/ablauf.h"
#include "shell/rahmen.h"
#include "shell/twips.h"
#include "shell/zaehler.h"
#include "steps/listenausgabe.h"
#include "steps/seiten.h"

class QLabel;
class QLineEdit;

namespace pelvanto {

class Bildknopf;
class ListenAnsicht;

// The default size of a page, twips.
inline constexpr Platz kSeite{60, 60, 9315, 6255};

// A page of the wizard: places its controls, and carries their values between the page's model and the
// controls. Every control's object name is its name in the model.
class SeitenFenster : public Rahmen {
  Q_OBJECT
 public:
  SeitenFenster(const QString& name, const QString& titel, Ablauf& ablauf, QWidget* eltern);

  // Controls into the model, and the model into the controls.
  void eintragen();
  void zeigen();
  // Where the focus goes when the page appears.
  QWidget* ersterFokus() const { return ersterFokus_; }

 protected:
  // What happens to a control when the page becomes wider.
  enum class Haftung { Links, Rechts, Breite };
  using Handlung = void (*)(Umgebung&, Seiten&);
  struct Loeschzaehler {
    Beschriftung& geloescht;
    Beschriftung& geloeschtLabel;
    Beschriftung& ergebnis;
  };

  // A caption; "&" marks the letter that leads to its control.
  QLabel* beschriftung(const QString& name, const QString& text, const Platz& platz,
                       QWidget* partner = nullptr, QWidget* eltern = nullptr);
  Zaehler* zaehler(const QString& name, const Platz& platz, Beschriftung& modell,
                   Zaehler::Grund grund = Zaehler::Grund::Grau);
  // A sum or an amount: like a counter, set to the right.
  Zaehler* betrag(const QString& name, const Platz& platz, Beschriftung& modell);
  QLabel* hinweis(const QString& name, const Platz& platz, Beschriftung& modell);
  // Takes a text box that is there already into page and model.
  void textfeld(QLineEdit* feld, const QString& name, const QString& zugaenglich, const Platz& platz,
                int hoechstlaenge, Textfeld& modell);
  Bildknopf* knopf(const QString& name, const QString& bild, const QString& tooltip, const QString& taste,
                   const Platz& platz, Knopf& modell, int kante = 28);
  ListenAnsicht* liste(const QString& name, const QString& zugaenglich, const QString& tooltip,
                       const Platz& platz, Liste& modell);
  Rahmen* rahmen(const QString& name, const QString& titel, const Platz& platz);

  // The buttons as every page has them.
  // `waehrendAus`: the button is off while its step runs.
  Bildknopf* ausfuehrenKnopf(const QString& name, const Platz& platz, Knopf& modell, Handlung handlung,
                             bool waehrendAus = true);
  // Prints the lists of the page, or saves them as CSV files after `csvFrage`; empty: no CSV on this page.
  Bildknopf* druckenKnopf(const QString& name, const Platz& platz, Knopf& modell, AusgabenDerSeite ausgaben,
                          const QString& csvFrage);
  // Copies the persons of `liste`.
  Bildknopf* serienbriefeKnopf(const QString& name, const Platz& platz, Knopf& modell, const Liste& liste);
  Bildknopf* serienbriefeAusgeschiedenKnopf(const QString& name, int oben, Knopf& modell, const Liste& liste,
                                            const QString& tooltip = {});
  Bildknopf* weiterKnopf(const QString& name, const Platz& platz, Knopf& modell);
  // Double click and Enter key of a list: its person in Verbindo.
  void oeffnetPersonen(ListenAnsicht* ansicht, const Liste& modell);
  // Delete key of a list.
  void loeschbar(ListenAnsicht* ansicht, Liste& modell, const Loeschzaehler& zaehler);

  void ersterFokusSetzen(QWidget* steuerelement) { ersterFokus_ = steuerelement; }
  void resizeEvent(QResizeEvent* ereignis) override;

  Ablauf& ablauf_;

 private:
  void ungestoertBeiKlick(Bildknopf* knopf, const std::function<void(Umgebung&, Seiten&)>& handlung);
  void kopiertBeiKlick(Bildknopf* knopf, Knopf& modell, const Liste& liste);

  struct Angeordnet {
    QWidget* steuerelement;
    Platz platz;
    Haftung haftung;
  };
  struct Feldbindung {
    QLineEdit* feld;
    Textfeld* modell;
    int hoechstlaenge;
    QString eingetragen;
  };
  template <typename Steuerelement, typename Modell>
  struct Bindung {
    Steuerelement* steuerelement;
    Modell* modell;
  };

  void aufnehmen(QWidget* steuerelement, const QString& name, const Platz& platz, Haftung haftung);
  void anordnen();

  std::vector<Angeordnet> angeordnet_;
  std::vector<Feldbindung> felder_;
  std::vector<Bindung<Bildknopf, Knopf>> knoepfe_;
  std::vector<Bindung<QLabel, Beschriftung>> beschriftungen_;
  std::vector<ListenAnsicht*> listen_;  // from top to bottom
  QWidget* ersterFokus_ = nullptr;
};

}  // namespace pelvanto
