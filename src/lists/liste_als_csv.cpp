#include "lists/liste_als_csv.h"

#include <QStringList>

#include "support/blanks.h"
#include "support/dauerhaft_schreiben.h"
#include "support/pfade.h"
#include "support/windows1252.h"

namespace pelvanto {
namespace {

using namespace Qt::StringLiterals;

constexpr int kSchmalsteSpalte = 200;  // twips; a column must be wider to be written

QString csvFeld(const QString& text, const DatenTypen& typen) {
  return std::get<QString>(typen.NullFilter(ohneAeussereBlanks(text), u"String+"_s));
}

QString csvDateiname(QString name) { return name.replace(u':', u' ').replace(u'/', u' '); }

}  // namespace

QByteArray csvText(const Liste& liste, const DatenTypen& typen) {
  const std::vector<Spalte>& spalten = liste.spalten();
  std::vector<qsizetype> geschrieben;
  QStringList felder;
  for (std::size_t i = 0; i < spalten.size(); ++i) {
    if (spalten[i].breite <= kSchmalsteSpalte) continue;
    geschrieben.push_back(static_cast<qsizetype>(i));
    felder << csvFeld(spalten[i].beschriftung, typen);
  }
  QString text = felder.join(u';') + u"\r\n"_s;
  for (const Zeile& zeile : liste.zeilen()) {
    felder.clear();
    for (const qsizetype spalte : geschrieben) felder << csvFeld(zeile.texte.value(spalte - 1), typen);
    text += felder.join(u';') + u"\r\n"_s;
  }
  return nachWindows1252(text);
}

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

void CSVAusgabe::ListeAlsCSV(const Liste& liste, const QString& name) {
  if (liste.anzahl() == 0) {
    meldungen_.zeigen({u"Die Liste ist leer. Erstellung der CSV wird nicht durchgeführt!"_s,
                       Symbol::Information, Knoepfe::Ok, u"Liste ist leer"_s});
    return;
  }
  if (liste.spalten().empty()) {
    meldungen_.zeigen({u"Die Liste hat keine Spalten. Die CSV kann nicht erstellt werden!"_s,
                       Symbol::Information, Knoepfe::Ok, u"Liste hat keine Spalten"_s});
    return;
  }
  const QString datei = csvDateiname(name);
  const QString ordner = anwendungen_.schreibtisch();
  if (ordner.isEmpty()) {
    ablehnen(datei, u"Der Ordner des Desktops konnte nicht ermittelt werden"_s);
    return;
  }
  const QString pfad = pfadVerbinden(ordner, datei);
  // Not a separator on every system, but a name with it could neither be shown nor opened anywhere.
  if (datei.contains(u'\\')) {
    ablehnen(pfad, u"Das Zeichen \\ ist in einem Dateinamen nicht erlaubt"_s);
    return;
  }
  if (schreiben(pfad, csvText(liste, typen_))) oeffnenAnbieten(pfad);
}

bool CSVAusgabe::schreiben(const QString& pfad, const QByteArray& inhalt) {
  const bool ersetzt = dateien_.DateiVorhanden(pfad);
  const Schreibergebnis ergebnis = dauerhaftSchreiben(dateien_, protokoll_, pfad, inhalt, Vorhandene::Weicht);
  if (ergebnis.fehler.isEmpty()) return true;
  if (ergebnis.alteUnloeschbar) {
    meldungen_.zeigen(
        {u"Eine ältere Datei auf dem Desktop kann nicht gelöscht werden. "
         u"Daher kann keine neue CSV-Datei erstellt werden!\r\n\r\n"_s +
             pfad,
         Symbol::Kritisch, Knoepfe::Ok, u"Funktion nicht möglich"_s});
  } else {
    nichtErstelltMelden(pfad, ergebnis.fehler, ersetzt);
  }
  return false;
}

void CSVAusgabe::ablehnen(const QString& datei, const QString& grund) {
  protokoll_.fehler(u"Datei wird nicht geschrieben: "_s + datei);
  protokoll_.fehler(grund, 4);
  nichtErstelltMelden(datei, grund, false);
}

void CSVAusgabe::nichtErstelltMelden(const QString& datei, const QString& grund, bool alteBleibt) {
  QString text = u"Die CSV-Datei konnte nicht erstellt werden: "_s + grund + u".\r\n\r\n"_s + datei;
  if (alteBleibt) text += u"\r\n\r\nDie ältere Datei dieses Namens ist unverändert."_s;
  meldungen_.zeigen({text, Symbol::Kritisch, Knoepfe::Ok, u"Funktion nicht möglich"_s});
}

void CSVAusgabe::oeffnenAnbieten(const QString& pfad) {
  const Antwort antwort = meldungen_.zeigen(
      {u"Die Datei   '"_s + DateinameAusPfad(pfad) +
           u"'   wurde auf den Desktop gelegt.\r\n\r\nSoll die Datei jetzt gleich geöffnet werden?"_s,
       Symbol::Frage, Knoepfe::JaNein, u"Datei wurde erstellt"_s});
  if (antwort != Antwort::Ja) return;
  constexpr int kNormalesFenster = 1;
  oberflaeche_.nachrichtenVerarbeiten();
  ausfuehren_.ausfuehren(pfad, kNormalesFenster);
}

}  // namespace pelvanto
