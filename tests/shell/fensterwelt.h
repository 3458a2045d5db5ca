#pragma once

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QTemporaryDir>

#include <memory>
#include <stdexcept>
#include <vector>

#include "common/ausgabe.h"
#include "common/fake_drucker.h"
#include "common/fakes.h"
#include "seams/real/echtes_dateisystem.h"
#include "shell/haupt_fenster.h"
#include "shell/listen_ansicht.h"

namespace pelvanto::test {

// A program folder on the disk with the real window over it; clock, boxes and number characters are fakes.
class Fensterwelt {
 public:
  Fensterwelt();
  ~Fensterwelt();

  QString pfad(const QString& name) const { return ordner.path() + u'/' + name; }
  void schreiben(const QString& name, const QByteArray& inhalt) const;
  QByteArray lesen(const QString& name) const;
  QStringList namen() const;
  // The lines of the day log and error log as one text.
  QString protokoll() const;
  // A delivery group, two paid years and bank details for `personen` persons.
  void vereinAnlegen(int personen = 3);
  // The settings that lead through `vereinAnlegen`.
  void einstellungenAnlegen() const;

  // Persons 1 and 2 get money; 3 to 7 drop out, one in each step from the second on. With its settings.
  void vereinMitAusfaellenAnlegen();

  // Makes the window, starts it and shows it. What starten() said.
  bool starten();

  template <typename Steuerelement>
  Steuerelement* finden(const QString& name) const {
    auto* gefunden = fenster->findChild<Steuerelement*>(name);
    if (!gefunden) throw std::runtime_error("no control " + name.toStdString());
    return gefunden;
  }
  // Presses a button that can be seen; false if it is off.
  bool druecken(const QString& name) const;
  // The right mouse button over a control, by the window system's way.
  void rechtsklicken(const QString& name) const;
  QString text(const QString& name) const { return finden<QLabel>(name)->text(); }
  QLineEdit* feld(const QString& name) const { return finden<QLineEdit>(name); }
  ListenAnsicht* liste(const QString& name) const { return finden<ListenAnsicht>(name); }
  // The rows as the list view shows them; the fields from `abZahl` on (counted
  // from 1) as plain numbers.
  std::vector<QStringList> zeilen(const QString& name, int abZahl = 99) const;
  // Runs steps and passes pages until the page with this number (0 to 5) has been filled.
  void bisSeite(int seite) const;

  QTemporaryDir ordner;
  EchtesDateisystem dateisystem;
  FakeUhr uhr;
  FakeMeldungen meldungen;
  FakeOberflaeche oberflaeche;
  FakeGebietsschema gebietsschema;
  FakeDrucker drucker;
  FakeAnwendungen anwendungen;
  std::unique_ptr<Umgebung> umgebung;
  std::unique_ptr<HauptFenster> fenster;
};

// Numbers and amounts without the user's format.
QString schlicht(QString text);

}  // namespace pelvanto::test
