#include "support/dateien_finden.h"

namespace pelvanto {

bool DateienFinden::DateiLoeschen(const QString& datei, int einzug) {
  constexpr int pruefungen = 10;
  constexpr int pause = 500;
  oberflaeche_.nachrichtenVerarbeiten();
  QString name = datei;
  if (!DateiVorhanden(name)) {
    return true;
  }
  if (!beseitigen(datei, name, einzug, [&] { return dateien_.loeschen(name); })) {
    return false;
  }
  for (int i = 0; i < pruefungen; ++i) {
    oberflaeche_.nachrichtenVerarbeiten();
    Warten(pause);
    if (!dateien_.existiert(name)) {
      break;
    }
  }
  protokoll_.schreiben(name + QStringLiteral(" gelöscht."), einzug + 4);
  return true;
}

bool DateienFinden::DateiErsetzen(const QString& neu, const QString& ziel, int einzug) {
  oberflaeche_.nachrichtenVerarbeiten();
  if (!beseitigen(ziel, ziel, einzug, [&] { return dateien_.ersetzen(neu, ziel); })) {
    return false;
  }
  protokoll_.schreiben(ziel + QStringLiteral(" gelöscht."), einzug + 4);
  return true;
}

// `vorgang` makes the file disappear.
bool DateienFinden::beseitigen(const QString& original, const QString& name, int einzug,
                               const std::function<Dateifehler()>& vorgang) {
  if (name.endsWith(QStringLiteral(".ini"), Qt::CaseInsensitive) && OrdnerAusPfad(name) == programmOrdner_) {
    protokoll_.fehler(QStringLiteral("DateienFinden.General.DateiLoeschen: INI-Datei soll gelöscht werden. "
                                     "Wird verweigert: ") +
                          name,
                      einzug);
    return false;
  }
  protokoll_.schreiben(QStringLiteral("Datei wird jetzt gelöscht: ") + name, einzug);
  Dateifehler fehler = dateien_.attributeLoeschen(name);
  if (fehler.ok()) {
    oberflaeche_.nachrichtenVerarbeiten();
    fehler = vorgang();
  }
  if (!fehler.ok()) {
    loeschfehlerMelden(original, name, fehler);
  }
  return fehler.ok();
}

void DateienFinden::loeschfehlerMelden(const QString& original, const QString& name,
                                       const Dateifehler& fehler) {
  protokoll_.fehler(QStringLiteral("DateinameLoeschen: Fehler Nr. %1 (").arg(fehler.nummer) +
                    fehler.beschreibung + QStringLiteral(") beim Löschen von ") + name +
                    QStringLiteral(" in procedure DateiLoeschen of Modul DateienFinden"));
  meldungen_.zeigen(
      {fehlerbericht(fehler, QStringLiteral("DateiLoeschen"), QStringLiteral("DateienFinden")) +
           QStringLiteral("\nbeim Löschen von\n") + name +
           QStringLiteral(
               "\nSollte das Problem öfters auftauchen, informieren Sie bitten den Programmierer!\n"
               "Möglicherweise funktionieren einige Teile des Programms nicht mehr richtig."),
       Symbol::Keines, Knoepfe::Ok, QStringLiteral("Eine Datei konnte nicht gelöscht werden")});
  protokoll_.schreiben(QStringLiteral("DateinameOriginal: ") + original, 8);
}

}  // namespace pelvanto
