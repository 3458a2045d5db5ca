#include "lists/anschriften_faelle.h"

#include <algorithm>
#include <stdexcept>

#include "common/golden_text.h"

using namespace Qt::StringLiterals;

namespace pelvanto::test {
namespace {

namespace fs = std::filesystem;

const fs::path kOrdner = fs::path(PELVANTO_SOURCE_DIR) / "tests" / "lists" / "anschriften";

QString aufgeloest(QString text) {
  return text.replace(u'␣', u' ').replace(u"\\r"_s, u"\r"_s).replace(u"\\n"_s, u"\n"_s);
}

Antwort alsAntwort(const QString& wort) {
  if (wort == u"Ja") return Antwort::Ja;
  if (wort == u"Nein") return Antwort::Nein;
  if (wort == u"Abbrechen") return Antwort::Abbrechen;
  throw std::runtime_error("not an answer: " + wort.toStdString());
}

void vorherAufnehmen(Anschriftfall& fall, const QString& feld, const QString& wert) {
  if (feld == u"Antworten") {
    for (const QString& wort : wert.split(u' ')) fall.antworten.push_back(alsAntwort(wort));
  } else if (feld == u"Korrektur") {
    fall.korrekturen.emplace_back(wert);
  } else if (feld == u"Korrektur abgebrochen") {
    fall.korrekturen.emplace_back(std::nullopt);
  } else {
    fall.vorher[feld] = wert;
  }
}

void danachAufnehmen(Anschriftfall& fall, const QString& feld, const QString& wert) {
  static const QStringList boxen = {u"Frage"_s,   u"Nachfrage"_s, u"Hinweis"_s,
                                    u"Meldung"_s, u"Eingabe"_s,   u"Vorgabe"_s};
  if (boxen.contains(feld)) {
    fall.gefragt << feld + u": "_s + wert;
  } else if (feld == u"Gezählt") {
    for (const QString& wort : wert.split(u' ')) fall.danach << feld + u": "_s + wort;
  } else {
    fall.danach << feld + u": "_s + wert;
  }
}

void lesen(const fs::path& datei, std::vector<Anschriftfall>& faelle) {
  bool danach = false;
  for (const QString& zeile : zeilenLesen(datei)) {
    if (zeile.isEmpty() || zeile.startsWith(u'#')) continue;
    if (zeile.startsWith(u'[')) {
      faelle.emplace_back().name = zeile.mid(1, zeile.size() - 2);
      danach = false;
      continue;
    }
    if (zeile == u"ergibt") {
      danach = true;
      continue;
    }
    const qsizetype punkt = zeile.indexOf(u':');
    const QString feld = zeile.left(punkt < 0 ? zeile.size() : punkt);
    const QString wert = punkt < 0 ? QString() : aufgeloest(zeile.mid(punkt + 1).trimmed());
    (danach ? danachAufnehmen : vorherAufnehmen)(faelle.back(), feld, wert);
  }
}

}  // namespace

std::optional<std::u16string> Anschriftfall::text(const QString& feld) const {
  const auto gefunden = vorher.find(feld);
  if (gefunden == vorher.end()) return std::nullopt;
  return gefunden->second.toStdU16String();
}

std::optional<std::int32_t> Anschriftfall::zahl(const QString& feld) const {
  const auto gefunden = vorher.find(feld);
  if (gefunden == vorher.end()) return std::nullopt;
  return gefunden->second.toInt();
}

std::vector<Anschriftfall> anschriftfaelle() {
  std::vector<fs::path> dateien;
  for (const fs::directory_entry& eintrag : fs::directory_iterator(kOrdner)) {
    if (eintrag.path().filename() != "vornamen.txt") dateien.push_back(eintrag.path());
  }
  std::ranges::sort(dateien);
  std::vector<Anschriftfall> faelle;
  for (const fs::path& datei : dateien) lesen(datei, faelle);
  for (Anschriftfall& fall : faelle) fall.danach.sort();
  return faelle;
}

std::vector<beispiel::Vorname> anschriftvornamen() {
  std::vector<beispiel::Vorname> vornamen;
  for (const QString& zeile : zeilenLesen(kOrdner / "vornamen.txt")) {
    if (zeile.isEmpty() || zeile.startsWith(u'#')) continue;
    const QStringList worte = zeile.split(u' ', Qt::SkipEmptyParts);
    vornamen.push_back({.vorname = worte.front().toStdU16String(),
                        .titel = worte.contains(u"Titel"),
                        .titelOben = worte.contains(u"TitelOben"),
                        .akademischerGrad = worte.contains(u"AkademischerGrad"),
                        .maennlich = worte.contains(u"m"),
                        .anzahl = 5});
  }
  return vornamen;
}

std::ostream& operator<<(std::ostream& strom, const Anschriftfall& fall) {
  return strom << fall.name.toStdString();
}

}  // namespace pelvanto::test
