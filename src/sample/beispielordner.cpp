#include "sample/beispielordner.h"

#include "jet/file.h"
#include "sample/einstellungen.h"
#include "sample/verein.h"

namespace pelvanto::beispiel {

void beispielordnerAnlegen(const std::filesystem::path& ordner, int jahr, double heute) {
  jet::create::DatabaseBuilder datenbank({.created = heute});
  tabellenBauen(datenbank, verein(jahr), {.geloeschteZeilen = true, .verschobeneZeilen = true});
  const auto inhalt = datenbank.finish();

  std::filesystem::create_directories(ordner);
  std::filesystem::remove(ordner / "Verbindo.mdb");
  jet::writeNewFile(jet::systemFiles(), ordner / "Verbindo.mdb", inhalt);
  std::filesystem::remove(ordner / "verbindo.ini");
  jet::writeNewFile(jet::systemFiles(), ordner / "verbindo.ini", einstellungsdatei(jahr));
}

}  // namespace pelvanto::beispiel
