#include "support/datei_ausfuehren.h"

namespace pelvanto {

DateiAusfuehren::DateiAusfuehren(Anwendungen& anwendungen, const DateienFinden& dateien, Protokoll& protokoll,
                                 Meldungen& meldungen, Uhr& uhr)
    : anwendungen_(anwendungen), dateien_(dateien), protokoll_(protokoll), meldungen_(meldungen), uhr_(uhr) {}

void DateiAusfuehren::ausfuehren(const QString& /*datei*/, int /*fensterart*/) {}

}  // namespace pelvanto
