#include "steps/listenausgabe.h"

namespace pelvanto {

Listenausgaben ausgaben1(const Umgebung& /*umgebung*/, const Seiten& /*seiten*/) { return {}; }
Listenausgaben ausgaben2(const Umgebung& /*umgebung*/, const Seiten& /*seiten*/) { return {}; }
Listenausgaben ausgaben3(const Umgebung& /*umgebung*/, const Seiten& /*seiten*/) { return {}; }
Listenausgaben ausgaben3b(const Umgebung& /*umgebung*/, const Seiten& /*seiten*/) { return {}; }
Listenausgaben ausgaben4(const Umgebung& /*umgebung*/, const Seiten& /*seiten*/) { return {}; }
Listenausgaben ausgaben5(const Umgebung& /*umgebung*/, const Seiten& /*seiten*/) { return {}; }

void listenDrucken(Umgebung& /*umgebung*/, Seiten& /*seiten*/, Knopf& /*knopf*/,
                   AusgabenDerSeite /*ausgaben*/) {}
void listenAlsCSVSpeichern(Umgebung& /*umgebung*/, Seiten& /*seiten*/, const QString& /*frage*/,
                           AusgabenDerSeite /*ausgaben*/) {}

}  // namespace pelvanto
