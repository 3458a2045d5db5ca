#include "shell/seiten_fenster.h"

#include <QLabel>
#include <QLineEdit>

#include <algorithm>

#include "shell/bildknopf.h"
#include "shell/listen_ansicht.h"
#include "steps/person_oeffnen.h"

namespace pelvanto {

SeitenFenster::SeitenFenster(const QString& name, const QString& titel, Ablauf& ablauf, QWidget* eltern)
    : Rahmen(titel, eltern), ablauf_(ablauf) {
  setObjectName(name);
}

void SeitenFenster::eintragen() {
  for (Feldbindung& bindung : felder_) bindung.modell->text = bindung.eingetragen = bindung.feld->text();
  for (ListenAnsicht* ansicht : listen_) ansicht->eintragen();
}

void SeitenFenster::zeigen() {
  for (Feldbindung& bindung : felder_) {
    // What the user typed meanwhile stays, unless the action itself changed the text.
    if (bindung.modell->text == bindung.eingetragen) continue;
    // A stored text that is longer than what can be typed is shown, and kept, as a whole.
    bindung.feld->setMaxLength(
        std::max(bindung.hoechstlaenge, static_cast<int>(bindung.modell->text.size())));
    bindung.feld->setText(bindung.modell->text);
    if (!bindung.feld->hasFocus()) bindung.feld->setCursorPosition(0);  // a long text shows its beginning
    bindung.eingetragen = bindung.modell->text;
  }
  for (auto& [knopf, modell] : knoepfe_) knopf->setEnabled(modell->ein);
  for (auto& [steuerelement, modell] : beschriftungen_) {
    steuerelement->setText(modell->text);
    steuerelement->setVisible(modell->sichtbar);
  }
  for (ListenAnsicht* ansicht : listen_) ansicht->zeigen();
}

void SeitenFenster::aufnehmen(QWidget* steuerelement, const QString& name, const Platz& platz,
                              Haftung haftung) {
  steuerelement->setObjectName(name);
  if (steuerelement->parentWidget() == this) {
    angeordnet_.push_back({steuerelement, platz, haftung});
    steuerelement->setGeometry(platz.pixelrechteck());
    return;
  }
  // Inside an inner frame, which itself has its place in the page.
  steuerelement->setGeometry(platz.pixelrechteck().translated(-steuerelement->parentWidget()->pos()));
}

// The lists share the height that the page has gained, and all of them its width; what stands below a list
// moves down with its lower edge.
void SeitenFenster::anordnen() {
  const QSize gewinn = size() - kSeite.pixelrechteck().size();
  QRect obere;
  QRect untere;
  for (const Angeordnet& eintrag : angeordnet_) {
    if (eintrag.haftung != Haftung::Breite) continue;
    (obere.isNull() ? obere : untere) = eintrag.platz.pixelrechteck();
  }
  const int obererGewinn = untere.isNull() ? gewinn.height() : gewinn.height() / 2;
  for (const Angeordnet& eintrag : angeordnet_) {
    QRect rechteck = eintrag.platz.pixelrechteck();
    if (eintrag.haftung == Haftung::Rechts) rechteck.translate(gewinn.width(), 0);
    if (eintrag.haftung == Haftung::Breite) {
      const bool istObere = rechteck == obere;
      rechteck.setWidth(rechteck.width() + gewinn.width());
      rechteck.setHeight(rechteck.height() + (istObere ? obererGewinn : gewinn.height() - obererGewinn));
    }
    if (!obere.isNull() && eintrag.platz.pixelrechteck().top() > obere.bottom())
      rechteck.translate(0, obererGewinn);
    eintrag.steuerelement->setGeometry(rechteck);
  }
}

void SeitenFenster::resizeEvent(QResizeEvent* ereignis) {
  Rahmen::resizeEvent(ereignis);
  anordnen();
}

QLabel* SeitenFenster::beschriftung(const QString& name, const QString& text, const Platz& platz,
                                    QWidget* partner, QWidget* eltern) {
  auto* label = new QLabel(text, eltern ? eltern : this);
  label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  label->setBuddy(partner);
  aufnehmen(label, name, platz, Haftung::Links);
  return label;
}

Zaehler* SeitenFenster::zaehler(const QString& name, const Platz& platz, Beschriftung& modell,
                                Zaehler::Grund grund) {
  auto* zaehler = new Zaehler(grund, this);
  aufnehmen(zaehler, name, platz, Haftung::Links);
  beschriftungen_.push_back({zaehler, &modell});
  return zaehler;
}

Zaehler* SeitenFenster::betrag(const QString& name, const Platz& platz, Beschriftung& modell) {
  constexpr int kRand = 3;
  Zaehler* feld = zaehler(name, platz, modell);
  feld->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  feld->setContentsMargins(kRand, 0, kRand, 0);
  return feld;
}

QLabel* SeitenFenster::hinweis(const QString& name, const Platz& platz, Beschriftung& modell) {
  QLabel* label = beschriftung(name, modell.text, platz);
  beschriftungen_.push_back({label, &modell});
  return label;
}

void SeitenFenster::textfeld(QLineEdit* feld, const QString& name, const QString& zugaenglich,
                             const Platz& platz, int hoechstlaenge, Textfeld& modell) {
  feld->setMaxLength(hoechstlaenge);
  feld->setAccessibleName(zugaenglich);
  aufnehmen(feld, name, platz, Haftung::Links);
  felder_.push_back({feld, &modell, hoechstlaenge, {}});
  connect(feld, &QLineEdit::textEdited, this, [feld, hoechstlaenge](const QString& text) {
    const int laenge = std::max(hoechstlaenge, static_cast<int>(text.size()));
    if (laenge == feld->maxLength()) return;
    const int stelle = feld->cursorPosition();
    feld->setMaxLength(laenge);  // moves the caret to the end
    feld->setCursorPosition(stelle);
  });
}

Bildknopf* SeitenFenster::knopf(const QString& name, const QString& bild, const QString& tooltip,
                                const QString& taste, const Platz& platz, Knopf& modell, int kante) {
  auto* knopf = new Bildknopf(bild, kante, this);
  knopf->setToolTip(tooltip);
  knopf->setAccessibleName(tooltip);
  knopf->setShortcut(QKeySequence(QStringLiteral("Alt+") + taste));
  knopf->setWhatsThis(QStringLiteral("%1 (Alt+%2)").arg(tooltip, taste));
  aufnehmen(knopf, name, platz, Haftung::Rechts);
  knoepfe_.push_back({knopf, &modell});
  return knopf;
}

ListenAnsicht* SeitenFenster::liste(const QString& name, const QString& zugaenglich, const QString& tooltip,
                                    const Platz& platz, Liste& modell) {
  auto* ansicht = new ListenAnsicht(modell, this);
  ansicht->setAccessibleName(zugaenglich);
  ansicht->setToolTip(tooltip);
  ansicht->setWhatsThis(tooltip + QStringLiteral(" Ohne Maus: Strg und die Nummer der Spalte sortiert, die "
                                                 "Menütaste passt Spaltenbreiten an."));
  aufnehmen(ansicht, name, platz, Haftung::Breite);
  listen_.push_back(ansicht);
  connect(ansicht, &ListenAnsicht::spalteAngeklickt, this, [this, &modell](int spalte) {
    ablauf_.ausfuehren([&modell, spalte](Umgebung&, Seiten&) { modell.spalteAngeklickt(spalte); });
  });
  return ansicht;
}

Rahmen* SeitenFenster::rahmen(const QString& name, const QString& titel, const Platz& platz) {
  auto* innen = new Rahmen(titel, this);
  aufnehmen(innen, name, platz, Haftung::Links);
  return innen;
}

void SeitenFenster::oeffnetPersonen(ListenAnsicht* ansicht, const Liste& modell) {
  ansicht->setWhatsThis(ansicht->whatsThis() +
                        QStringLiteral(" Die Eingabetaste öffnet die Person in Verbindo."));
  connect(ansicht, &ListenAnsicht::oeffnenGewuenscht, this, [this, ansicht, &modell](int zeile) {
    ablauf_.ausfuehren([&](Umgebung& umgebung, Seiten&) {
      personInVerbindoOeffnen(umgebung, modell, zeile, ansicht->objectName());
    });
  });
}

void SeitenFenster::loeschbar(ListenAnsicht* ansicht, Liste& modell, const Loeschzaehler& zaehler) {
  connect(ansicht, &ListenAnsicht::loeschenGewuenscht, this, [this, &modell, zaehler] {
    ablauf_.ausfuehren([&](Umgebung& umgebung, Seiten&) {
      markierteZeilenLoeschen(umgebung.typen, modell, zaehler.geloescht, zaehler.geloeschtLabel,
                              zaehler.ergebnis);
    });
  });
}

}  // namespace pelvanto
