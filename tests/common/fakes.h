#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QSet>
#include <QString>
#include <QStringList>

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "seams/anwendungen.h"
#include "seams/dateisystem.h"
#include "seams/gebietsschema.h"
#include "seams/meldungen.h"
#include "seams/oberflaeche.h"
#include "seams/uhr.h"

namespace pelvanto::test {

// A clock that stands still until it is set; waits are recorded (milliseconds) and cost no time.
class FakeUhr : public Uhr {
 public:
  FakeUhr();  // 2026-03-16 08:09:10
  explicit FakeUhr(QDateTime zeit) : zeit_(std::move(zeit)) {}

  QDateTime jetzt() const override { return zeit_; }
  void warten(int millisekunden) override;
  void stellen(const QDateTime& zeit) { zeit_ = zeit; }

  std::vector<int> wartezeiten;
  bool laeuftBeimWarten = false;        // waiting moves the clock
  std::function<void(int)> beimWarten;  // called with the number of the wait, from 1

 private:
  QDateTime zeit_;
};

// Records the boxes and answers questions from a queue; a question nobody planned for is answered with No.
class FakeMeldungen : public Meldungen {
 public:
  Antwort zeigen(const Meldung& meldung) override;
  std::optional<QString> eingeben(const Eingabe& eingabe) override;
  // The texts of the boxes shown so far.
  QStringList texte() const;

  std::vector<Meldung> gezeigt;
  std::deque<Antwort> antworten;
  std::vector<Eingabe> gefragt;
  std::deque<std::optional<QString>> eingaben;  // an input box nobody planned for is cancelled
  int ungeplanteFragen = 0;
  std::function<void(const Meldung&)> beimZeigen;
};

class FakeOberflaeche : public Oberflaeche {
 public:
  void nachrichtenVerarbeiten() override;
  void sanduhr(bool an) override;
  void fortschritt(int nummer, int anzahl) override;

  std::vector<std::pair<int, int>> fortschritte;  // every call
  int verarbeitet = 0;
  bool sanduhrAn = false;
  std::vector<bool> sanduhrFolge;  // every call
  std::function<void()> beimVerarbeiten;
};

class FakeGebietsschema : public Gebietsschema {
 public:
  Zahlenzeichen zahlenzeichen() const override { return zeichen; }
  int landesvorwahl() const override { return vorwahl; }
  int vorwahl = 43;
  Zahlenzeichen zeichen;  // German unless set otherwise
};

// Records what was to be opened and started.
class FakeAnwendungen : public Anwendungen {
 public:
  int oeffnen(const QString& datei, int fensterart) override {
    geoeffnet.emplace_back(datei, fensterart);
    return antwort;
  }
  Dateifehler starten(const QString& programm, const QString& argument) override {
    gestartet.emplace_back(programm, argument);
    return startfehler;
  }
  QString schreibtisch() const override { return schreibtischordner; }

  std::vector<std::pair<QString, int>> geoeffnet;
  std::vector<std::pair<QString, QString>> gestartet;
  int antwort = 42;
  Dateifehler startfehler;
  QString schreibtischordner = QStringLiteral("/tisch");
};

// Files in memory. Paths are compared letter by letter; separators are those that the caller uses.
class SpeicherDateisystem : public Dateisystem {
 public:
  struct Datei {
    QByteArray inhalt;
    Dateizeiten zeiten;
    bool nurLesen = false;  // until attributeLoeschen
    bool gesperrt = false;  // held exclusively by another program: cannot be opened, deleted, renamed
    int fassung = 0;        // another one after every change of the content
  };

  // Makes the folders of the path too. The times of new files are those of `zeit`.
  Datei& anlegen(const QString& pfad, const QByteArray& inhalt = {});
  void ordner(const QString& pfad);
  QByteArray inhalt(const QString& pfad) const;
  QStringList pfade() const;
  // nullptr if there is none. Who changes the content through it says so by `neueFassung`.
  Datei* datei(const QString& pfad);
  void neueFassung(Datei& datei) { datei.fassung = ++fassungen_; }
  QDateTime zeit{QDate(2026, 3, 16), QTime(8, 9, 10)};

  bool existiert(const QString& pfad) const override;
  bool istOrdner(const QString& pfad) const override;
  Dateifehler oeffnenPruefen(const QString& pfad) const override;
  std::optional<Dateizeiten> zeiten(const QString& pfad) const override;
  std::optional<qint64> groesse(const QString& pfad) const override;
  QStringList namen(const QString& ordner) const override;
  Dateifehler lesen(const QString& pfad, QByteArray& inhalt) const override;
  Dateifehler anhaengen(const QString& pfad, const QByteArray& inhalt) override;
  Dateifehler schreiben(const QString& pfad, const QByteArray& inhalt) override;
  Dateifehler loeschen(const QString& pfad) override;
  Dateifehler attributeLoeschen(const QString& pfad) override;
  Dateifehler umbenennen(const QString& alt, const QString& neu) override;
  Dateifehler ersetzen(const QString& neu, const QString& ziel) override;
  Dateifehler kopieren(const QString& quelle, const QString& ziel) override;
  Dateifehler ordnerAnlegen(const QString& ordner) override;
  Dateifehler ordnerSpuelen(const QString& ordner) override;

 private:
  Dateifehler zugriff(const QString& pfad, bool schreibend) const;
  Dateifehler neuesZiel(const QString& pfad) const;

  Datei& neueDatei(const QString& pfad, const QByteArray& inhalt);

  std::map<QString, Datei> dateien_;
  int fassungen_ = 0;
  QSet<QString> ordner_{QStringLiteral("/")};
};

// Hands everything on to another file system, but lets chosen operations fail, and keeps a record of all
// operations that answer with a Dateifehler, as "schreiben /prog/x.txt".
class StoerDateisystem : public Dateisystem {
 public:
  explicit StoerDateisystem(Dateisystem& echt) : echt_(echt) {}

  // The operation with this number (from 1, counted over all recorded operations) fails.
  void stoereNummer(int nummer, Dateifehler fehler);
  // Every operation of this name (as in the record), or only its n-th call, fails; with `nurPfad` only those
  // whose path contains it.
  void stoere(const QString& vorgang, Dateifehler fehler, int nurAufruf = 0, const QString& nurPfad = {});
  void nichtMehrStoeren() { regeln_.clear(); }
  int anzahl() const { return static_cast<int>(vorgaenge.size()); }
  int gestoert() const { return gestoert_; }

  mutable QStringList vorgaenge;
  std::function<void(const QString&)> vorVorgang;  // called with the record of each operation before it
  // A disturbed `schreiben` or `anhaengen` has written the first half.
  bool halbSchreiben = true;

  bool existiert(const QString& pfad) const override { return echt_.existiert(pfad); }
  bool istOrdner(const QString& pfad) const override { return echt_.istOrdner(pfad); }
  Dateifehler oeffnenPruefen(const QString& pfad) const override;
  std::optional<Dateizeiten> zeiten(const QString& pfad) const override;
  std::optional<qint64> groesse(const QString& pfad) const override;
  QStringList namen(const QString& ordner) const override { return echt_.namen(ordner); }
  Dateifehler lesen(const QString& pfad, QByteArray& inhalt) const override;
  Dateifehler anhaengen(const QString& pfad, const QByteArray& inhalt) override;
  Dateifehler schreiben(const QString& pfad, const QByteArray& inhalt) override;
  Dateifehler loeschen(const QString& pfad) override;
  Dateifehler attributeLoeschen(const QString& pfad) override;
  Dateifehler umbenennen(const QString& alt, const QString& neu) override;
  Dateifehler ersetzen(const QString& neu, const QString& ziel) override;
  Dateifehler kopieren(const QString& quelle, const QString& ziel) override;
  Dateifehler ordnerAnlegen(const QString& ordner) override;
  Dateifehler ordnerSpuelen(const QString& ordner) override;

 private:
  struct Regel {
    QString vorgang;  // empty: any
    int nummer = 0;   // over all (vorgang empty) or of this operation; 0: every
    QString pfad;
    Dateifehler fehler;
    int aufrufe = 0;
  };
  Dateifehler pruefen(const QString& vorgang, const QString& pfad) const;

  Dateisystem& echt_;
  mutable std::vector<Regel> regeln_;
  mutable int gestoert_ = 0;
};

}  // namespace pelvanto::test
