#include "common/golden.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "common/golden_datenbank.h"
#include "common/golden_text.h"

namespace pelvanto::test {

namespace {

namespace fs = std::filesystem;

bool beginntMeldung(const QStringList& felder, const GoldAbschnitt* offen) {
  if (felder.front() != u"Meldung") return false;
  // The entries have a value of this name too; a second one is the message box.
  const bool parameter = offen != nullptr && offen->titel == u"Parameter";
  return !parameter || offen->werte.contains(felder.front());
}

GoldAbschnitt neuerAbschnitt(const QStringList& felder) {
  GoldAbschnitt abschnitt;
  abschnitt.titel = felder.front().mid(1, felder.front().size() - 2);
  if (felder.size() > 1) abschnitt.zeilenzahl = felder[1].toInt();
  return abschnitt;
}

void zeileAufnehmen(GoldAbschnitt& abschnitt, const QStringList& felder) {
  if (!abschnitt.zeilenzahl) {
    abschnitt.werte[felder.front()] = felder.value(1);
  } else if (abschnitt.spalten.isEmpty()) {
    abschnitt.spalten = felder;
  } else {
    abschnitt.zeilen.push_back(felder);
  }
}

void pruefen(const Goldfall& fall) {
  for (const GoldAbschnitt& abschnitt : fall.abschnitte) {
    if (abschnitt.zeilenzahl && *abschnitt.zeilenzahl != static_cast<int>(abschnitt.zeilen.size())) {
      throw std::runtime_error("malformed case: " + fall.name.toStdString());
    }
  }
}

void erwartetesLesen(Goldfall& fall, const fs::path& datei) {
  GoldAbschnitt* offen = nullptr;
  for (const QString& zeile : zeilenLesen(datei)) {
    if (zeile.isEmpty()) {
      offen = nullptr;
      continue;
    }
    const QStringList felder = felderLesen(zeile);
    if (offen == nullptr && zeile.startsWith(u'[')) {
      offen = &fall.abschnitte.emplace_back(neuerAbschnitt(felder));
    } else if (beginntMeldung(felder, offen)) {
      fall.meldungen.append(felder.value(1));
    } else if (offen != nullptr) {
      zeileAufnehmen(*offen, felder);
    }
  }
  pruefen(fall);
}

void parameterLesen(Goldfall& fall, const fs::path& datei) {
  for (const QString& zeile : zeilenLesen(datei)) {
    const qsizetype gleich = zeile.indexOf(u'=');
    if (gleich > 0) fall.parameter[zeile.left(gleich)] = zeile.mid(gleich + 1);
  }
}

std::optional<QByteArray> inhalt(const fs::path& pfad) {
  std::ifstream datei(pfad, std::ios::binary);
  if (!datei) return std::nullopt;
  const std::string alles{std::istreambuf_iterator<char>(datei), {}};
  return QByteArray::fromStdString(alles);
}

// `stamm`: path up to the endings, e.g. ".../verbindo-basic." or ".../rundung/".
Goldfall lesen(const QString& name, const fs::path& ordner, const std::string& stamm) {
  Goldfall fall;
  fall.name = name;
  fall.ordner = ordner;
  parameterLesen(fall, stamm + "parameter.txt");
  erwartetesLesen(fall, stamm + "erwartet.txt");
  fall.datei = inhalt(stamm + "erwartet.xml");
  return fall;
}

void eigeneLesen(const fs::path& ordner, std::vector<Goldfall>& faelle) {
  for (const fs::directory_entry& eintrag : fs::directory_iterator(ordner)) {
    if (!eintrag.is_directory()) continue;
    const std::string name = eintrag.path().filename().string();
    faelle.push_back(lesen(QString::fromStdString(name), eintrag.path(), eintrag.path().string() + "/"));
  }
}

void geteilteLesen(const fs::path& ordner, std::vector<Goldfall>& faelle) {
  const std::string ende = ".parameter.txt";
  if (!fs::exists(ordner)) return;
  for (const fs::directory_entry& eintrag : fs::directory_iterator(ordner)) {
    const std::string name = eintrag.path().filename().string();
    if (!name.ends_with(ende)) continue;
    const std::string fall = name.substr(0, name.size() - ende.size());
    faelle.push_back(lesen(QString::fromStdString(fall), ordner, (ordner / fall).string() + "."));
  }
}

// Several cases may share a database: NAME-2 and NAME-3 that of NAME.
fs::path geteilteDatenbank(const fs::path& ordner, std::string name) {
  if (fs::exists(ordner / (name + ".mdb"))) return ordner / (name + ".mdb");
  return ordner / (name.substr(0, name.rfind('-')) + ".mdb");
}

}  // namespace

QString Goldfall::wert(const QString& schluessel) const {
  const auto gefunden = parameter.find(schluessel);
  return gefunden == parameter.end() ? QString() : gefunden->second;
}

const GoldAbschnitt* Goldfall::abschnitt(const QString& titel) const {
  const auto gefunden = std::ranges::find(abschnitte, titel, &GoldAbschnitt::titel);
  return gefunden == abschnitte.end() ? nullptr : &*gefunden;
}

void Goldfall::datenbankAnlegen(const fs::path& pfad) const {
  if (fs::exists(ordner / "datenbank.txt")) {
    datenbankLesen(ordner / "datenbank.txt").schreiben(pfad);
    return;
  }
  fs::copy_file(geteilteDatenbank(ordner, name.toStdString()), pfad, fs::copy_options::overwrite_existing);
  fs::permissions(pfad, fs::perms::owner_read | fs::perms::owner_write, fs::perm_options::add);
}

std::vector<Goldfall> goldfaelle(const fs::path& quellordner) {
  std::vector<Goldfall> faelle;
  eigeneLesen(quellordner / "tests" / "golden", faelle);
  geteilteLesen(quellordner / ".." / "shared" / "testdaten", faelle);
  std::ranges::sort(faelle, {}, &Goldfall::name);
  return faelle;
}

std::string testname(const Goldfall& fall) {
  std::string name = fall.name.toStdString();
  std::ranges::replace(name, '-', '_');
  return name;
}

std::ostream& operator<<(std::ostream& strom, const Goldfall& fall) {
  return strom << fall.name.toStdString();
}

}  // namespace pelvanto::test
