#pragma once

#include <QByteArray>
#include <QString>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <memory>

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

  std::unique_ptr<jet::File> openShared(const std::filesystem::path& pfad) override {
    ++oeffnungen;
    if (beimOeffnen) beimOeffnen(oeffnungen);
    const QString name = QString::fromStdU16String(pfad.u16string());
    if (gesperrteOeffnungen > 0) {
      --gesperrteOeffnungen;
      throw jet::Error(jet::ErrorKind::Busy, "locked by another program");
    }
    if (!dateien_.existiert(name)) throw jet::Error(jet::ErrorKind::FileNotFound, "no such file");
    return std::make_unique<Datei>(*this, dateien_.inhalt(name));
  }

  std::unique_ptr<jet::File> create(const std::filesystem::path&) override { nurLesen(); }
  bool exists(const std::filesystem::path& pfad) const override {
    return dateien_.existiert(QString::fromStdU16String(pfad.u16string()));
  }
  void remove(const std::filesystem::path&) override { nurLesen(); }
  void rename(const std::filesystem::path&, const std::filesystem::path&) override { nurLesen(); }
  void flushFolder(const std::filesystem::path&) override {}
  bool isLocked(const std::filesystem::path&, std::uint64_t, std::uint64_t) const override { return false; }

 private:
  // What stands before it is page 0, which every look at the state of the file reads.
  static constexpr std::uint64_t kSeite = 4096;

  [[noreturn]] static void nurLesen() {
    throw jet::Error(jet::ErrorKind::AccessDenied, "these files are only read");
  }

  class Datei : public jet::File {
   public:
    Datei(SpeicherJet& jet, QByteArray inhalt) : jet_(jet), inhalt_(std::move(inhalt)) {}
    std::uint64_t size() const override { return static_cast<std::uint64_t>(inhalt_.size()); }
    std::int64_t lastWriteTime() const override { return 1 + jet_.fremdeSchreibzeit; }
    void read(std::uint64_t stelle, std::span<std::uint8_t> ziel) const override {
      if (stelle > size() || ziel.size() > size() - stelle) {
        throw jet::Error(jet::ErrorKind::Truncated, "the file ends early");
      }
      std::copy_n(inhalt_.begin() + static_cast<std::ptrdiff_t>(stelle), ziel.size(), ziel.begin());
      if (stelle < kSeite || gestoert_ || jet_.fremdeSchreibvorgaenge == 0) return;
      gestoert_ = true;
      --jet_.fremdeSchreibvorgaenge;
      ++jet_.fremdeSchreibzeit;
    }

    void acquire() override { nurLesen(); }
    void release() noexcept override {}
    void write(std::uint64_t, std::span<const std::uint8_t>) override { nurLesen(); }
    void resize(std::uint64_t) override { nurLesen(); }
    void flush() override { nurLesen(); }

   private:
    SpeicherJet& jet_;
    QByteArray inhalt_;
    mutable bool gestoert_ = false;
  };

  SpeicherDateisystem& dateien_;
};

}  // namespace pelvanto::test
