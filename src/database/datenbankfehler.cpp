#include "database/datenbankfehler.h"

#include <array>

#include "database/engine_saetze.h"

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

constexpr QStringView kUnkenntlich = u"Nicht erkennbares Datenbankformat";
constexpr QStringView kZuVieleBenutzer = u"Zu viele aktive Benutzer";
constexpr QStringView kAbhilfe = u"bitte die Datenbank in Verbindo reparieren und komprimieren";

// What is known of each error. `%1` is the file; `%2`, always at the end, what the engine was asked and could
// not do.
struct Eintrag {
  jet::ErrorKind art;
  int nummer;
  QStringView text;
};

constexpr std::array kEintraege{
    Eintrag{jet::ErrorKind::FileNotFound, 3024, u"Die Datei %1 wurde nicht gefunden"},
    Eintrag{jet::ErrorKind::AccessDenied, 3051,
            u"Die Datei %1 darf nicht gelesen werden, die Rechte dafür fehlen"},
    Eintrag{jet::ErrorKind::Busy, 3045,
            u"Die Datei %1 wird von einem anderen Programm benutzt und ist zurzeit gesperrt"},
    Eintrag{jet::ErrorKind::Io, 3043,
            u"Die Datei %1 konnte nicht gelesen werden, Datenträger oder Netzwerk "
            u"meldet einen Fehler"},
    Eintrag{
        jet::ErrorKind::NotADatabase, 3343,
        u"Nicht erkennbares Datenbankformat: der Inhalt der Datei ist keine Access-Datenbank; wenn es die "
        u"Datenbank von Verbindo sein soll, bitte in Verbindo reparieren und komprimieren"},
    Eintrag{
        jet::ErrorKind::UnsupportedFormat, 3428,
        u"Die Datei %1 hat ein Format, das hier nicht gelesen werden kann; gelesen werden Datenbanken von "
        u"Access 97 bis 2003"},
    Eintrag{jet::ErrorKind::PasswordRequired, 3031,
            u"Die Datenbank %1 ist durch ein Kennwort geschützt und kann deshalb nicht geöffnet werden"},
    Eintrag{jet::ErrorKind::Truncated, 3049,
            u"Nicht erkennbares Datenbankformat: die Datei ist kürzer als ihr Inhalt es verlangt, ihr Ende "
            u"fehlt; "},
    Eintrag{jet::ErrorKind::Damaged, 3340, u"Nicht erkennbares Datenbankformat: "},
    Eintrag{jet::ErrorKind::NoSuchTable, 3078, u"Die Tabelle wurde in der Datenbank nicht gefunden: %2"},
    Eintrag{jet::ErrorKind::NoSuchColumn, 3265, u"Das Feld wurde in der Abfrage nicht gefunden: %2"},
    Eintrag{jet::ErrorKind::Sql, 3075, u"Die Abfrage ist nicht verständlich: %2"},
    Eintrag{jet::ErrorKind::TypeMismatch, 3464, u"Die Datentypen in der Abfrage passen nicht zueinander: %2"},
    Eintrag{jet::ErrorKind::Constraint, 3022, u"Der Datensatz verletzt eine Regel seiner Tabelle: %2"},
    Eintrag{jet::ErrorKind::Limit, 3047, u"Die Grenzen des Datenbankformats wurden überschritten: %2"},
    Eintrag{jet::ErrorKind::ReadOnly, 3027, u"Die Datei %1 kann nur gelesen, nicht geändert werden: %2"},
    Eintrag{jet::ErrorKind::NotWritable, 3326,
            u"Die Tabelle lässt sich nicht ändern, ohne Schaden zu riskieren: %2"},
    Eintrag{jet::ErrorKind::Conflict, 3197,
            u"Ein anderes Programm hat den Datensatz inzwischen geändert oder gelöscht, er wurde nicht "
            u"überschrieben"},
    Eintrag{jet::ErrorKind::DiskFull, 3026, u"Auf dem Datenträger der Datei %1 ist kein Platz mehr frei"},
    Eintrag{
        jet::ErrorKind::Interrupted, 3158,
        u"Das Speichern in der Datei %1 wurde unterbrochen und konnte noch nicht rückgängig gemacht werden; "
        u"Pelvanto holt das beim nächsten Öffnen nach, bitte starten Sie Verbindo nicht vorher"},
};

// What sounds differently where the file was to be changed.
constexpr std::array kSchreibeintraege{
    Eintrag{jet::ErrorKind::AccessDenied, 3051,
            u"Die Datei %1 darf nicht geändert werden, die Rechte dafür fehlen; es wurde nichts gespeichert"},
    Eintrag{jet::ErrorKind::Busy, 3045,
            u"Die Datei %1 wird von einem anderen Programm benutzt und kann deshalb zurzeit nicht geändert "
            u"werden; bitte Verbindo auf allen Arbeitsplätzen schließen und es noch einmal versuchen"},
    Eintrag{jet::ErrorKind::Io, 3043,
            u"Die Datei %1 konnte nicht geändert werden, Datenträger oder Netzwerk meldet einen Fehler; es "
            u"wurde nichts gespeichert"},
    Eintrag{jet::ErrorKind::TypeMismatch, 3464,
            u"Ein Wert passt nicht zu seinem Feld, es wurde nichts gespeichert: %2"},
    Eintrag{jet::ErrorKind::Constraint, 3022,
            u"Der Datensatz verletzt eine Regel seiner Tabelle, es wurde nichts gespeichert: %2"},
    Eintrag{jet::ErrorKind::Limit, 3047,
            u"Die Grenzen des Datenbankformats wurden überschritten, es wurde nichts gespeichert: %2"},
    Eintrag{jet::ErrorKind::DiskFull, 3026,
            u"Auf dem Datenträger der Datei %1 ist kein Platz mehr frei, es wurde nichts gespeichert"},
};

// What is damaged, by a word of the engine's reason where the whole sentence is not known; the first that
// fits.
struct Schadensgrund {
  QStringView wort;
  QStringView deutsch;
};

constexpr std::array kSchadensgruende{
    Schadensgrund{u"usage map", u"das Verzeichnis der Seiten einer Tabelle ist fehlerhaft"},
    Schadensgrund{u"table definition", u"die Beschreibung einer Tabelle ist fehlerhaft"},
    Schadensgrund{u"column", u"die Beschreibung einer Tabelle ist fehlerhaft"},
    Schadensgrund{u"long value", u"ein langer Text ist fehlerhaft"},
    Schadensgrund{u"index", u"ein Index ist fehlerhaft"},
    Schadensgrund{u"catalog", u"das Verzeichnis der Tabellen ist fehlerhaft"},
    Schadensgrund{u"row", u"ein Datensatz ist fehlerhaft"},
    Schadensgrund{u"slot", u"ein Datensatz ist fehlerhaft"},
    Schadensgrund{u"page", u"eine Seite fehlt oder ist von falscher Art"},
};

QString schaden(const jet::Error& fehler) {
  const QString ort = fehler.page() ? u"Seite %1 ist beschädigt"_s.arg(*fehler.page())
                                    : u"der Aufbau der Datei ist beschädigt"_s;
  const QString grund = QString::fromStdString(fehler.reason());
  const QString satz = aufDeutsch(fehler.reason());
  if (satz != grund) return ort + u", "_s + satz + u"; "_s;
  for (const Schadensgrund& bekannt : kSchadensgruende) {
    if (grund.contains(bekannt.wort, Qt::CaseInsensitive))
      return ort + u", "_s + bekannt.deutsch.toString() + u"; "_s;
  }
  return ort + u"; "_s;
}

// The two texts that make a damaged file must not come in through the words of a query.
QString ohneSchadenstexte(QString text) {
  for (const QStringView verboten : {kUnkenntlich, kZuVieleBenutzer}) {
    text.replace(verboten.toString(), u"..."_s, Qt::CaseInsensitive);
  }
  return text;
}

// The reason comes in last: what it quotes may look like a place for the path.
Datenbankfehler ausgefuellt(const Eintrag& eintrag, const jet::Error& fehler, const QString& pfad) {
  QString text = eintrag.text.toString();
  text.replace(u"%1"_s, pfad);
  if (eintrag.text.contains(u"%2")) {
    text.truncate(text.size() - 2);
    text += aufDeutsch(fehler.reason());
  }
  return {eintrag.nummer, ohneSchadenstexte(text)};
}

}  // namespace

Datenbankfehler alsSchreibfehler(const jet::Error& fehler, const QString& pfad) {
  for (const Eintrag& eintrag : kSchreibeintraege) {
    if (eintrag.art == fehler.kind()) return ausgefuellt(eintrag, fehler, pfad);
  }
  return alsDatenbankfehler(fehler, pfad);
}

Datenbankfehler inVerbindoGeoeffnet(const QString& pfad) {
  return {3356, ohneSchadenstexte(u"Die Datenbank "_s + pfad +
                                  u" ist in Verbindo geöffnet und kann deshalb zurzeit nicht geändert "
                                  u"werden; bitte Verbindo auf allen Arbeitsplätzen schließen und es noch "
                                  u"einmal versuchen"_s)};
}

Datenbankfehler nurLesendGeoeffnet(const QString& pfad) {
  return alsDatenbankfehler(
      jet::Error(jet::ErrorKind::ReadOnly, "the connection was opened for reading only"), pfad);
}

Datenbankfehler alsDatenbankfehler(const jet::Error& fehler, const QString& pfad) {
  for (const Eintrag& eintrag : kEintraege) {
    if (eintrag.art != fehler.kind()) continue;
    const QString text = eintrag.text.toString();
    if (fehler.kind() == jet::ErrorKind::Damaged)
      return {eintrag.nummer, text + schaden(fehler) + kAbhilfe.toString()};
    if (fehler.kind() == jet::ErrorKind::Truncated) return {eintrag.nummer, text + kAbhilfe.toString()};
    if (fehler.kind() == jet::ErrorKind::NotADatabase) return {eintrag.nummer, text};
    return ausgefuellt(eintrag, fehler, pfad);
  }
  return {3000, ohneSchadenstexte(u"Unbekannter Fehler der Datenbank: "_s +
                                  QString::fromStdString(fehler.reason()))};
}

Datenbankfehler keinDatensatz() { return {3021, u"Kein aktueller Datensatz"_s}; }

Datenbankfehler keinFeld(QStringView name) {
  return alsDatenbankfehler(jet::Error(jet::ErrorKind::NoSuchColumn, name.toString().toStdString()), {});
}

Datenbankfehler speichermangel() {
  return {3035, u"Der Arbeitsspeicher reicht nicht aus, um die Datenbank zu lesen oder zu ändern"_s};
}

bool istBeschaedigung(const Datenbankfehler& fehler) {
  return fehler.beschreibung.contains(kUnkenntlich) || fehler.beschreibung.contains(kZuVieleBenutzer);
}

}  // namespace pelvanto
