// The buttons as every page has them.
#include "shell/bildknopf.h"
#include "shell/seiten_fenster.h"

namespace pelvanto {

Bildknopf* SeitenFenster::ausfuehrenKnopf(const QString& name, const Platz& platz, Knopf& modell,
                                          Handlung handlung, bool waehrendAus) {
  Bildknopf* knopf = this->knopf(name, QStringLiteral("ausfuehren"), QStringLiteral("Ergebnis zeigen"),
                                 QStringLiteral("E"), platz, modell);
  connect(knopf, &Bildknopf::clicked, this, [this, handlung, knopf, waehrendAus] {
    const bool hatteFokus = knopf->hasFocus();
    if (waehrendAus) {
      knopf->setEnabled(false);
      knopf->repaint();
    }
    ablauf_.ausfuehren(handlung);
    if (hatteFokus) knopf->setFocus();
  });
  return knopf;
}

Bildknopf* SeitenFenster::druckenKnopf(const QString& name, const Platz& platz, Knopf& modell,
                                       AusgabenDerSeite ausgaben, const QString& csvFrage) {
  Bildknopf* knopf = this->knopf(name, QStringLiteral("drucken"), QStringLiteral("Ergebnis drucken"),
                                 QStringLiteral("D"), platz, modell);
  ungestoertBeiKlick(knopf, [&modell, ausgaben](Umgebung& umgebung, Seiten& seiten) {
    listenDrucken(umgebung, seiten, modell, ausgaben);
  });
  if (csvFrage.isEmpty()) return knopf;
  const QString hinweis =
      QStringLiteral("Rechte Maustaste oder Menütaste: als CSV-Datei auf dem Desktop speichern.");
  knopf->setAccessibleDescription(hinweis);
  knopf->setWhatsThis(knopf->whatsThis() + u' ' + hinweis);
  connect(knopf, &Bildknopf::rechtsGeklickt, this, [this, ausgaben, csvFrage] {
    ablauf_.ausfuehren([&](Umgebung& umgebung, Seiten& seiten) {
      listenAlsCSVSpeichern(umgebung, seiten, csvFrage, ausgaben);
    });
  });
  return knopf;
}

// The button is off, seen at once, until everything is done.
void SeitenFenster::ungestoertBeiKlick(Bildknopf* knopf,
                                       const std::function<void(Umgebung&, Seiten&)>& handlung) {
  connect(knopf, &Bildknopf::clicked, this, [this, knopf, handlung] {
    const bool hatteFokus = knopf->hasFocus();
    knopf->setEnabled(false);
    knopf->repaint();
    ablauf_.ungestoertAusfuehren(handlung);
    if (hatteFokus) knopf->setFocus();
  });
}

void SeitenFenster::kopiertBeiKlick(Bildknopf* knopf, Knopf& modell, const Liste& liste) {
  ungestoertBeiKlick(knopf, [&modell, &liste](Umgebung& umgebung, Seiten&) {
    serienbriefeKopieren(umgebung, modell, liste);
  });
}

Bildknopf* SeitenFenster::serienbriefeKnopf(const QString& name, const Platz& platz, Knopf& modell,
                                            const Liste& liste) {
  Bildknopf* knopf =
      this->knopf(name, QStringLiteral("serienbrief"),
                  QStringLiteral("Personen in der Liste in die Serienbrief-Adressendatei kopieren"),
                  QStringLiteral("S"), platz, modell);
  kopiertBeiKlick(knopf, modell, liste);
  return knopf;
}

Bildknopf* SeitenFenster::serienbriefeAusgeschiedenKnopf(const QString& name, int oben, Knopf& modell,
                                                         const Liste& liste, const QString& tooltip) {
  constexpr int kKante = 20;
  const QString text = tooltip.isEmpty()
                           ? QStringLiteral("Personen in der Liste in die Serienbrief-Adressendatei kopieren")
                           : tooltip;
  Bildknopf* knopf = this->knopf(name, QStringLiteral("serienbrief"), text, QStringLiteral("A"),
                                 {8520, oben, 675, 375}, modell, kKante);
  kopiertBeiKlick(knopf, modell, liste);
  return knopf;
}

Bildknopf* SeitenFenster::weiterKnopf(const QString& name, const Platz& platz, Knopf& modell) {
  Bildknopf* knopf =
      this->knopf(name, QStringLiteral("weiter"), QStringLiteral("Weiter zum nächsten Schritt"),
                  QStringLiteral("W"), platz, modell);
  connect(knopf, &Bildknopf::clicked, this, [this] { ablauf_.weiter(); });
  return knopf;
}

}  // namespace pelvanto
