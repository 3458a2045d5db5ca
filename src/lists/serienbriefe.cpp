#include "lists/serienbriefe.h"

#include <algorithm>
#include <new>

#include "support/blanks.h"

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

constexpr qsizetype kMeisteGenannten = 10;

// Takes the display away however the copy ends.
class Fortschritt {
 public:
  Fortschritt(Oberflaeche& oberflaeche, std::size_t anzahl)
      : oberflaeche_(oberflaeche), anzahl_(static_cast<int>(anzahl)) {}
  Fortschritt(const Fortschritt&) = delete;
  Fortschritt& operator=(const Fortschritt&) = delete;
  ~Fortschritt() { oberflaeche_.fortschritt(0, 0); }
  void zeigen(std::size_t nummer) { oberflaeche_.fortschritt(static_cast<int>(nummer), anzahl_); }

 private:
  Oberflaeche& oberflaeche_;
  int anzahl_;
};

QString alsText(const Zeile& person) {
  const QString text = u"PersonenID "_s + QString::number(person.id());
  const QString name = ohneAeussereBlanks(person.texte.value(0));
  return name.isEmpty() ? text : text + u" ("_s + name + u')';
}

QString vorhandenSQL(int id) {
  return u"SELECT IDNummer, Anrede, Vorname, PLZOrt, Adresse, [Sehr_geehr], Titel, Fax, Famname, TitelOben, "
         u"NamenZusatzZeile, EMail, Telefon, Du, GanzeAnrede, GanzerName, PLZ, Ort, [Straße], "
         u"InternationaleFaxNummer FROM Adressen WHERE IDNummer = "_s +
         QString::number(id);
}

void felderSetzen(Tabelle& adressen, const Anschrift& anschrift, int id) {
  const auto text = [&](QStringView feld, const QString& wert) {
    adressen.setzen(feld, Feldwert(ohneAeussereBlanks(wert)));
  };
  text(u"Anrede", anschrift.Anrede);
  text(u"Vorname", anschrift.Vorname);
  text(u"PLZOrt", anschrift.PLZOrt);
  text(u"Adresse", anschrift.Adresse);
  text(u"Sehr_geehr", anschrift.Sehr_geehr);
  text(u"Titel", anschrift.Titel);
  text(u"Fax", anschrift.Fax);
  adressen.setzen(u"IDNummer", Feldwert(id));
  text(u"Famname", anschrift.Famname);
  text(u"TitelOben", anschrift.TitelOben);
  text(u"NamenZusatzZeile", anschrift.NamenZusatzZeile);
  text(u"EMail", anschrift.EMail);
  text(u"Telefon", anschrift.Telefon);
  adressen.setzen(u"Du", Feldwert(anschrift.Du));
  text(u"GanzeAnrede", anschrift.GanzeAnrede);
  text(u"GanzerName", anschrift.GanzerName);
  text(u"PLZ", anschrift.PLZ);
  text(u"Ort", anschrift.Ort);
  text(u"Straße", anschrift.Straße);
  text(u"InternationaleFaxNummer", anschrift.InternationaleFaxNummer);
}

}  // namespace

Serienbriefe::Serienbriefe(const Prozesswerte& werte, DatenbankRoutinen& datenbank, Adressen& adressen,
                           Protokoll& protokoll, Meldungen& meldungen, Oberflaeche& oberflaeche)
    : werte_(werte),
      datenbank_(datenbank),
      adressen_(adressen),
      protokoll_(protokoll),
      meldungen_(meldungen),
      oberflaeche_(oberflaeche) {}

void Serienbriefe::SerienbriefAdressenKopieren(const Liste& liste) {
  if (liste.anzahl() == 0) return;
  const std::vector<Zeile>& personen = liste.zeilen();
  const Verlauf verlauf = kopieren(personen);
  if (!verlauf.grund.isEmpty()) {
    // What a failed save has left half done is undone at once, before anybody else opens the file.
    static_cast<void>(datenbank_.stand(werte_.DatenbankPfad));
    abbruchMelden(personen, verlauf);
  }
  if (!verlauf.verworfenes.isEmpty()) verworfenesMelden(verlauf.verworfenes);
}

Serienbriefe::Verlauf Serienbriefe::kopieren(const std::vector<Zeile>& personen) {
  Verlauf verlauf;
  const auto gescheitert = [&](const Datenbankfehler& fehler) {
    protokoll_.fehler(fehlerbericht({fehler.nummer, fehler.beschreibung}, u"SerienbriefAdressenKopieren"_s,
                                    u"HauptFenster"_s));
    verlauf.grund = fehler.beschreibung;
  };
  Fortschritt fortschritt(oberflaeche_, personen.size());
  try {
    const std::unique_ptr<Verbindung> verbindung = datenbank_.direktOeffnen(werte_.DatenbankPfad, false);
    datenbank_.schreibenVorbereiten(*verbindung, u"Adressen"_s);
    verlauf.begonnen = true;
    for (const Zeile& person : personen) {
      fortschritt.zeigen(verlauf.fertig + 1);
      verlauf.grund = hinzufuegen(*verbindung, person, verlauf);
      if (!verlauf.grund.isEmpty()) break;
      ++verlauf.fertig;
    }
  } catch (const Datenbankfehler& fehler) {
    gescheitert(fehler);
  } catch (const std::bad_alloc&) {
    gescheitert(speichermangel());
  }
  return verlauf;
}

QString Serienbriefe::hinzufuegen(Verbindung& verbindung, const Zeile& person, Verlauf& verlauf) {
  const QString vorhanden = vorhandenSQL(person.id());
  if (!datenbank_.tabelleDirekt(verbindung, vorhanden).amEnde()) return {};
  const AnschriftErgebnis ergebnis = adressen_.AnschriftErstellen(person.id());
  if (!ergebnis.grund.isEmpty()) return ergebnis.grund;
  // While questions were open somebody else may have added the person.
  Tabelle adressen = datenbank_.tabelleDirekt(verbindung, vorhanden);
  if (!adressen.amEnde()) return {};
  adressen.hinzufuegen();
  felderSetzen(adressen, ergebnis.anschrift, person.id());
  adressen.speichern();
  if (!ergebnis.verworfeneWoerter.isEmpty()) {
    verlauf.verworfenes << alsText(person) + u": "_s + ergebnis.verworfeneWoerter.join(u", "_s);
  }
  return {};
}

void Serienbriefe::abbruchMelden(const std::vector<Zeile>& personen, const Verlauf& verlauf) {
  QString text;
  QString stand = u"Es wurde niemand in die Serienbrief-Adressendatei kopiert."_s;
  if (verlauf.begonnen) {
    text = u"Die Serienbrief-Adresse für "_s + alsText(personen[verlauf.fertig]) +
           u" konnte nicht angelegt werden: "_s + verlauf.grund + u'.';
    if (verlauf.fertig > 0) {
      stand =
          u"Das Kopieren wurde beendet. Die Personen davor (%1 von %2) sind in der "
          u"Serienbrief-Adressendatei und bleiben dort."_s.arg(verlauf.fertig)
              .arg(personen.size());
    }
    stand +=
        u" Wiederholen Sie das Kopieren, wenn der Grund behoben ist; es ergänzt dann nur, wer noch fehlt."_s;
  } else {
    text = u"Die Serienbrief-Adressen können nicht kopiert werden: "_s + verlauf.grund + u'.';
  }
  protokoll_.fehler(text);
  meldungen_.zeigen({text + u"\r\n\r\n"_s + stand, Symbol::Kritisch});
}

void Serienbriefe::verworfenesMelden(const QStringList& verworfenes) {
  for (const QString& zeile : verworfenes) {
    protokoll_.fehler(u"Nicht nachgeschlagen und in der Serienbrief-Adresse weggelassen, "_s + zeile);
  }
  QString text =
      u"Diese Wörter konnten nicht in der Tabelle Vornamen nachgeschlagen werden und fehlen deshalb in den "
      u"Serienbrief-Adressen. Bitte berichtigen Sie diese Adressen in Verbindo:\r\n\r\n"_s +
      verworfenes.first(std::min(verworfenes.size(), kMeisteGenannten)).join(u"\r\n"_s);
  const qsizetype weitere = verworfenes.size() - kMeisteGenannten;
  if (weitere > 0) {
    const QString personen = weitere == 1 ? u"Person"_s : u"Personen"_s;
    text += u"\r\nund %1 weitere %2 (siehe Protokoll)"_s.arg(weitere).arg(personen);
  }
  meldungen_.zeigen({text, Symbol::Ausrufezeichen});
}

}  // namespace pelvanto
