#include "shell/haupt_fenster.h"

#include <QApplication>
#include <QCloseEvent>
#include <QIcon>
#include <QLineEdit>
#include <QScreen>

#include <exception>
#include <new>

#include "shell/eingabesperre.h"
#include "shell/einstellungen.h"
#include "shell/farben.h"
#include "shell/fortschritt.h"
#include "shell/schrift.h"
#include "shell/seite1_fenster.h"
#include "shell/seite2_fenster.h"
#include "shell/seite3_fenster.h"
#include "shell/seite4_fenster.h"
#include "shell/seite5_fenster.h"
#include "shell/twips.h"
#include "steps/start.h"
#include "support/programm_ende.h"

namespace pelvanto {

namespace {

// An error that carries no number of its own.
constexpr int kAllgemeinerFehler = 5;
constexpr int kSpeichermangel = 7;

QIcon programmbild() {
  QIcon bild;
  for (const int kante : {16, 24, 32, 48, 64, 128, 256})
    bild.addFile(QStringLiteral(":/icons/pelvanto-%1.png").arg(kante));
  return bild;
}

}  // namespace

HauptFenster::HauptFenster(Umgebung& umgebung) : umgebung_(umgebung) {
  setObjectName("HauptFenster");
  setWindowTitle("Projekt Milvarte Auszahlungen");
  setWindowIcon(programmbild());
  setFont(fensterschrift());
  auswahlFaerben();
  Ablauf& ablauf = *this;
  fenster_ = {new Seite1Fenster(seiten_.seite1, ablauf, this),
              new Seite2Fenster(seiten_.seite2, ablauf, this),
              new Seite3Fenster(modellFuer(seiten_.seite3), ablauf, this),
              new Seite3Fenster(modellFuer(seiten_.seite3b), ablauf, this),
              new Seite4Fenster(seiten_.seite4, ablauf, this),
              new Seite5Fenster(seiten_.seite5, ablauf, this)};
  for (SeitenFenster* seite : fenster_) seite->setVisible(seite == fenster_.front());
  fortschritt_ = new Fortschritt(this);
  hilfeAnbieten();
  const QSize groesse(pixel(kSeite.breite + 2 * kSeite.links), pixel(kSeite.hoehe + 2 * kSeite.oben));
  setMinimumSize(groesse);
  resize(groesse);
  zeigen();
  fenster_.front()->ersterFokus()->setFocus();
}

HauptFenster::~HauptFenster() = default;

bool HauptFenster::starten() {
  bool bereit = false;
  abgesichert([&] {
    if (!einstellungenLesbar(umgebung_, QStringLiteral("Das Programm wird beendet."))) return;
    einstellungenLesen(umgebung_.ini, seiten_);
    zeigen();
    zentrieren();
    bereit = datenbankBereit(umgebung_);
  });
  if (!bereit) beendet_ = true;
  return bereit;
}

// Follows the desktop's palette; only the selection is made readable where it is not.
void HauptFenster::auswahlFaerben() {
  const QPalette lesbar = mitLesbarerAuswahl(QApplication::palette());
  QPalette eigene = palette();
  for (const auto gruppe : {QPalette::Active, QPalette::Inactive}) {
    for (const auto rolle : {QPalette::Highlight, QPalette::HighlightedText})
      eigene.setColor(gruppe, rolle, lesbar.color(gruppe, rolle));
  }
  if (eigene != palette()) setPalette(eigene);
}

void HauptFenster::changeEvent(QEvent* ereignis) {
  QWidget::changeEvent(ereignis);
  if (ereignis->type() == QEvent::PaletteChange) auswahlFaerben();
}

void HauptFenster::zentrieren() {
  if (const QScreen* bildschirm = screen()) {
    const QRect flaeche = bildschirm->geometry();
    move(flaeche.topLeft() + QPoint((flaeche.width() - width()) / 2, (flaeche.height() - height()) / 2));
  }
}

const Seiten& HauptFenster::seiten() {
  eintragen();
  return seiten_;
}

void HauptFenster::eintragen() {
  for (SeitenFenster* seite : fenster_) seite->eintragen();
}

void HauptFenster::zeigen() {
  for (SeitenFenster* seite : fenster_) seite->zeigen();
}

void HauptFenster::ausfuehren(const std::function<void(Umgebung&, Seiten&)>& handlung) {
  if (laeuft_ || beendet_) return;
  laeuft_ = true;
  eintragen();
  abgesichert([&] {
    betragsfeldVerlassen();
    handlung(umgebung_, seiten_);
  });
  laeuft_ = false;
  if (beendet_) return;
  zeigen();
  if (schliessenGewuenscht_) close();
}

// What the user did meanwhile has come to nothing when the window answers again.
void HauptFenster::ungestoertAusfuehren(const std::function<void(Umgebung&, Seiten&)>& handlung) {
  if (laeuft_ || beendet_) return;
  const Eingabesperre sperre(*this);
  ausfuehren(handlung);
  if (!beendet_) umgebung_.welt.oberflaeche.nachrichtenVerarbeiten();
}

void HauptFenster::fortschrittZeigen(int nummer, int anzahl) { fortschritt_->zeigen(nummer, anzahl); }

// A key does not take the focus away as a click does: what leaving the field does is done first.
void HauptFenster::betragsfeldVerlassen() {
  const QWidget* feld = focusWidget();
  if (feld && feld->objectName() == "txtGesamtbetrag") txtGesamtbetrag_LostFocus(umgebung_, seiten_.seite4);
}

void HauptFenster::abgesichert(const std::function<void()>& handlung) {
  try {
    handlung();
    return;
  } catch (const ProgrammEnde&) {
    beendet_ = true;
  } catch (const Datenbankfehler& fehler) {
    fehlerMelden(fehler.nummer, fehler.beschreibung);
  } catch (const std::bad_alloc&) {
    fehlerMelden(kSpeichermangel, "Der Arbeitsspeicher reicht nicht aus");
  } catch (const std::exception& fehler) {
    fehlerMelden(kAllgemeinerFehler, QString::fromLocal8Bit(fehler.what()));
  } catch (...) {
    fehlerMelden(kAllgemeinerFehler, "unbekannter Fehler");
  }
  umgebung_.welt.oberflaeche.sanduhr(false);
  if (!beendet_) return;
  close();
  QCoreApplication::quit();
}

// Nobody is to carry on what an action that broke off has left.
void HauptFenster::weiterSperren() {
  Knopf* const naechste[] = {&seiten_.seite1.cmdWeiter1, &seiten_.seite2.cmdWeiter2,
                             &seiten_.seite3.cmdWeiter3, &seiten_.seite3b.cmdWeiter3b,
                             &seiten_.seite4.cmdWeiter4, &seiten_.seite5.cmdDatentraegerErstellen};
  naechste[aktuelleSeite_]->ein = false;
}

void HauptFenster::fehlerMelden(int nummer, const QString& beschreibung) {
  weiterSperren();
  umgebung_.protokoll.fehler(QStringLiteral("Error %1 (%2) in procedure Schritt of Modul HauptFenster")
                                 .arg(nummer)
                                 .arg(beschreibung));
  umgebung_.welt.meldungen.zeigen(
      {QStringLiteral("Fehler %1 (%2) in Prozedur Schritt im Modul HauptFenster.\n"
                      "Bitte informieren Sie den Programmierer!")
           .arg(QString::number(nummer), beschreibung),
       Symbol::Kritisch, Knoepfe::Ok, "Fehler"});
}

void HauptFenster::weiter() {
  ausfuehren([this](Umgebung&, Seiten&) {
    if (aktuelleSeite_ + 1 >= static_cast<int>(fenster_.size())) return;
    SeitenFenster* bisherige = fenster_.at(static_cast<std::size_t>(aktuelleSeite_));
    SeitenFenster* naechste = fenster_.at(static_cast<std::size_t>(++aktuelleSeite_));
    naechste->show();
    naechste->ersterFokus()->setFocus(Qt::TabFocusReason);
    bisherige->hide();
  });
}

void HauptFenster::closeEvent(QCloseEvent* ereignis) {
  if (beendet_) {
    ereignis->accept();
    return;
  }
  if (laeuft_) {
    // A step that lets messages run is not to lose its window.
    schliessenGewuenscht_ = true;
    ereignis->ignore();
    return;
  }
  laeuft_ = true;
  eintragen();
  abgesichert([this] { einstellungenSpeichern(umgebung_.ini, seiten_); });
  beendet_ = true;
  laeuft_ = false;
  ereignis->accept();
}

void HauptFenster::resizeEvent(QResizeEvent* ereignis) {
  QWidget::resizeEvent(ereignis);
  const int rand = pixel(kSeite.links);
  const QRect flaeche = rect().adjusted(rand, rand, -rand, -rand);
  for (SeitenFenster* seite : fenster_) {
    if (seite) seite->setGeometry(flaeche);
  }
}

}  // namespace pelvanto
