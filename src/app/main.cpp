// The program: the real world outside, the values of the process, and the window.
#include <QApplication>
#include <QDir>

#include "jet/file.h"
#include "seams/real/echte_anwendungen.h"
#include "seams/real/echte_meldungen.h"
#include "seams/real/echte_oberflaeche.h"
#include "seams/real/echte_uhr.h"
#include "seams/real/echter_drucker.h"
#include "seams/real/echtes_dateisystem.h"
#include "seams/real/echtes_gebietsschema.h"
#include "shell/deutsch.h"
#include "shell/haupt_fenster.h"
#include "shell/schrift.h"
#include "support/pfade.h"

int main(int argc, char* argv[]) {
  QApplication programm(argc, argv);
  QCoreApplication::setApplicationName("Pelvanto");
  QApplication::setFont(pelvanto::fensterschrift());
  pelvanto::qtTexteAufDeutsch(&programm);

  pelvanto::EchteUhr uhr;
  pelvanto::EchteMeldungen meldungen;
  pelvanto::EchteOberflaeche oberflaeche;
  pelvanto::EchtesGebietsschema gebietsschema;
  pelvanto::EchtesDateisystem dateisystem;
  pelvanto::EchterDrucker drucker;
  pelvanto::EchteAnwendungen anwendungen;
  pelvanto::Prozesswerte werte = pelvanto::prozesswerteFuer(
      QDir::toNativeSeparators(QCoreApplication::applicationDirPath()), dateisystem);
  werte.EigeneFassung = pelvanto::umgeleiteterPfad(werte.DatenbankPfad, qEnvironmentVariable("LOCALAPPDATA"));
  pelvanto::Umgebung umgebung(
      {uhr, meldungen, oberflaeche, gebietsschema, dateisystem, jet::systemFiles(), drucker, anwendungen},
      werte);

  pelvanto::HauptFenster fenster(umgebung);
  oberflaeche.fortschrittZeigenMit(
      [&fenster](int nummer, int anzahl) { fenster.fortschrittZeigen(nummer, anzahl); });
  if (!fenster.starten()) return 0;
  fenster.show();
  return QApplication::exec();
}
