#include "lists/liste_als_csv.h"

namespace pelvanto {

QByteArray csvText(const Liste& /*liste*/, const DatenTypen& /*typen*/) { return {}; }

CSVAusgabe::CSVAusgabe(Anwendungen& anwendungen, DateienFinden& dateien, DateiAusfuehren& ausfuehren,
                       Protokoll& protokoll, Meldungen& meldungen, Oberflaeche& oberflaeche,
                       const DatenTypen& typen)
    : anwendungen_(anwendungen),
      dateien_(dateien),
      ausfuehren_(ausfuehren),
      protokoll_(protokoll),
      meldungen_(meldungen),
      oberflaeche_(oberflaeche),
      typen_(typen) {}

void CSVAusgabe::ListeAlsCSV(const Liste& /*liste*/, const QString& /*name*/) {}

}  // namespace pelvanto
