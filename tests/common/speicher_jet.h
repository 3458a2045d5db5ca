#pragma once

#include <QByteArray>
#include <QString>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <utility>

#include "common/fakes.h"
#include "jet/error.h"
#include "jet/file.h"

namespace pelvanto::test {

// The engine's view of the files in memory: the same files as the rest of the program sees, and another
// program beside it that locks them or writes into them.
class SpeicherJet : public jet::FileSystem {
 public:
  explicit SpeicherJet(SpeicherDateisystem& dateien) : dateien_(dateien) {}

  int gesperrteOeffnungen = 0;     // so many openings to come fail with Busy
  int fremdeSchreibvorgaenge = 0;  // in so many openings to come another program writes during the reading
  std::function<void(int)> beimOeffnen;  // number of the opening, from 1
  int oeffnungen = 0;
  std::int64_t fremdeSchreibzeit = 0;  // added to the time of the last change

  int besetzteVersuche = 0;  // so many attempts to take a file for writing fail: another program has it open
  std::set<QString> mitBenutzern;                       // users' files on which another program holds a lock
  std::optional<jet::ErrorKind> schreibfehler;          // every writing from now on
  std::function<void(const QString&)> vorDemSchreiben;  // the file that is about to be written

  std::unique_ptr<jet::File> openShared(const std::filesystem::path& pfad) override {
    ++oeffnungen;
    if (beimOeffnen) beimOeffnen(oeffnungen);
    if (gesperrteOeffnungen > 0) {
      --gesperrteOeffnungen;
      throw jet::Error(jet::ErrorKind::Busy, "locked by another program");
    }
    vorhandene(pfad);
    if (zustaende_[alsName(pfad)].genommen) throw jet::Error(jet::ErrorKind::Busy, "somebody writes");
    return std::make_unique<Datei>(*this, pfad);
  }

  std::unique_ptr<jet::File> create(const std::filesystem::path& pfad) override {
    if (exists(pfad)) throw jet::Error(jet::ErrorKind::Io, "the file exists already");
    if (schreibfehler) throw jet::Error(*schreibfehler, "writing failed");
    dateien_.anlegen(alsName(pfad));
    auto datei = std::make_unique<Datei>(*this, pfad);
    datei->acquire();
    return datei;
  }
  bool exists(const std::filesystem::path& pfad) const override { return dateien_.existiert(alsName(pfad)); }
  void remove(const std::filesystem::path& pfad) override { pruefen(dateien_.loeschen(alsName(pfad))); }
  void rename(const std::filesystem::path& von, const std::filesystem::path& nach) override {
    pruefen(dateien_.umbenennen(alsName(von), alsName(nach)));
  }
  void flushFolder(const std::filesystem::path&) override {}
  bool isLocked(const std::filesystem::path& pfad, std::uint64_t, std::uint64_t) const override {
    return exists(pfad) && mitBenutzern.contains(alsName(pfad));
  }

 private:
  // What stands before it is page 0, which every look at the state of the file reads.
  static constexpr std::uint64_t kSeite = 4096;

  struct Zustand {
    int halter = 0;
    bool genommen = false;
  };

  static QString alsName(const std::filesystem::path& pfad) {
    return QString::fromStdU16String(pfad.generic_u16string());
  }
  static void pruefen(const Dateifehler& fehler) {
    if (!fehler.ok()) throw jet::Error(jet::ErrorKind::Io, "the operation failed");
  }
  SpeicherDateisystem::Datei& vorhandene(const std::filesystem::path& pfad) const {
    SpeicherDateisystem::Datei* datei = dateien_.datei(alsName(pfad));
    if (datei == nullptr) throw jet::Error(jet::ErrorKind::FileNotFound, "no such file");
    return *datei;
  }

  class Datei : public jet::File {
   public:
    Datei(SpeicherJet& jet, std::filesystem::path pfad) : jet_(jet), pfad_(std::move(pfad)) {
      ++zustand().halter;
    }
    ~Datei() override {
      release();
      --zustand().halter;
    }
    Datei(const Datei&) = delete;
    Datei& operator=(const Datei&) = delete;

    std::uint64_t size() const override { return static_cast<std::uint64_t>(inhalt().size()); }
    std::int64_t lastWriteTime() const override {
      return 1 + jet_.fremdeSchreibzeit + jet_.vorhandene(pfad_).fassung;
    }
    void read(std::uint64_t stelle, std::span<std::uint8_t> ziel) const override {
      if (stelle > size() || ziel.size() > size() - stelle) {
        throw jet::Error(jet::ErrorKind::Truncated, "the file ends early");
      }
      std::copy_n(inhalt().cbegin() + static_cast<std::ptrdiff_t>(stelle), ziel.size(), ziel.begin());
      if (stelle < kSeite || gestoert_ || jet_.fremdeSchreibvorgaenge == 0) return;
      gestoert_ = true;
      --jet_.fremdeSchreibvorgaenge;
      ++jet_.fremdeSchreibzeit;
    }

    void acquire() override {
      if (jet_.besetzteVersuche > 0) {
        --jet_.besetzteVersuche;
        throw jet::Error(jet::ErrorKind::Busy, "another program has it open");
      }
      if (zustand().halter > 1) throw jet::Error(jet::ErrorKind::Busy, "somebody else has it open");
      if (jet_.vorhandene(pfad_).nurLesen) throw jet::Error(jet::ErrorKind::AccessDenied, "read only");
      zustand().genommen = genommen_ = true;
    }
    void release() noexcept override {
      if (std::exchange(genommen_, false)) zustand().genommen = false;
    }
    void write(std::uint64_t stelle, std::span<const std::uint8_t> stueck) override {
      if (jet_.vorDemSchreiben) jet_.vorDemSchreiben(alsName(pfad_));
      QByteArray& bytes = zumSchreiben();
      const auto ende = static_cast<qsizetype>(stelle + stueck.size());
      if (bytes.size() < ende) bytes.append(ende - bytes.size(), '\0');
      std::ranges::copy(stueck, bytes.begin() + static_cast<std::ptrdiff_t>(stelle));
    }
    void resize(std::uint64_t groesse) override {
      QByteArray& bytes = zumSchreiben();
      const auto neue = static_cast<qsizetype>(groesse);
      if (bytes.size() < neue) bytes.append(neue - bytes.size(), '\0');
      bytes.truncate(neue);
    }
    void flush() override { zumSchreiben(); }

   private:
    Zustand& zustand() { return jet_.zustaende_[alsName(pfad_)]; }
    const QByteArray& inhalt() const { return jet_.vorhandene(pfad_).inhalt; }
    QByteArray& zumSchreiben() {
      if (jet_.schreibfehler) throw jet::Error(*jet_.schreibfehler, "writing failed");
      SpeicherDateisystem::Datei& datei = jet_.vorhandene(pfad_);
      jet_.dateien_.neueFassung(datei);
      return datei.inhalt;
    }

    SpeicherJet& jet_;
    std::filesystem::path pfad_;
    bool genommen_ = false;
    mutable bool gestoert_ = false;
  };

  SpeicherDateisystem& dateien_;
  std::map<QString, Zustand> zustaende_;
};

}  // namespace pelvanto::test
