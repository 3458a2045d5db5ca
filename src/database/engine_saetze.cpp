#include "database/engine_saetze.h"

#include <QRegularExpression>

#include <array>
#include <optional>

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

// The whole English sentence as a regular expression; its captures are %1 to %3 of the German one.
struct Satz {
  QStringView englisch;
  QStringView deutsch;
};

// Oddities of a file, and a count that fits nothing.
constexpr std::array kZurDatei{
    Satz{u"Table (.+) has (\\d+) rows, its count says (\\d+); an index confirms the rows\\.",
         u"Die Tabelle %1 hat %2 Datensätze, ihr Zähler nennt %3; ein Index bestätigt die Datensätze."},
    Satz{u"Table (.+) has (\\d+) rows, its count says (\\d+), and no index confirms either",
         u"die Tabelle %1 hat %2 Datensätze, ihr Zähler nennt %3, und kein Index bestätigt eine der beiden "
         u"Zahlen"},
    Satz{u"Page (\\d+) is no data page of table (.+), which claims it\\.",
         u"Seite %1 ist der Tabelle %2 zugeordnet, enthält aber keine Datensätze von ihr."},
    Satz{u"A usage map on page (\\d+) names pages behind the end of the file\\.",
         u"Ein Seitenverzeichnis auf Seite %1 nennt Seiten, die hinter dem Ende der Datei liegen."},
};

// Why a record or a table cannot be changed.
constexpr std::array kZumSchreiben{
    Satz{u"the connection was opened for reading only", u"sie wurde nur zum Lesen geöffnet"},
    Satz{u"only files of Jet 4 that are not encoded are written",
         u"geändert werden nur unverschlüsselte Datenbanken ab Access 2000"},
    Satz{u"only rows of one table without an order are changed",
         u"geändert werden nur Datensätze einer einzelnen Tabelle ohne Sortierung"},
    Satz{u"a check found an error in the table: (.+)",
         u"eine Prüfung hat in ihr einen Fehler gefunden, bitte die Datenbank in Verbindo reparieren und "
         u"komprimieren (Einzelheit für den Programmierer: %1)"},
    Satz{u"more indexes than a table can have", u"sie hat mehr Indizes, als eine Tabelle haben kann"},
    Satz{u"the order of an index is not known: index (.+)",
         u"nach welcher Ordnung ihr Index %1 sortiert ist, ist nicht bekannt"},
    Satz{u"a column of an unknown type: column (.+)", u"das Feld %1 ist von unbekannter Art"},
    Satz{
        u"(?:automatic numbers in a column of another type|an automatic number of another kind): column (.+)",
        u"das Feld %1 hat eine Art von automatischen Nummern, die hier nicht vergeben werden kann"},
    Satz{u"a column whose length does not fit its type: column (.+)",
         u"die Länge des Feldes %1 passt nicht zu seiner Art"},
    Satz{u"a column that reaches into another: column (.+)",
         u"das Feld %1 überschneidet sich mit einem anderen"},
    Satz{u"a default value that cannot be computed: column (.+)",
         u"der Standardwert des Feldes %1 kann hier nicht berechnet werden"},
    Satz{u"a text or binary of fixed length: column (.+)", u"das Feld %1 hat eine feste Länge"},
    Satz{u"there is no map for the pages of its long values: column (.+)",
         u"für das Feld %1 fehlt das Verzeichnis seiner langen Texte"},
    Satz{u"an indexed text holds a character without a known place in the order: column (.+)",
         u"das Feld %1 enthält ein Zeichen, dessen Platz im Index nicht bekannt ist"},
    Satz{u"the other side of a relation is missing: relation (.+)",
         u"zur Beziehung %1 fehlt die andere Tabelle"},
    Satz{u"the two sides of a relation do not fit: relation (.+)",
         u"die beiden Seiten der Beziehung %1 passen nicht zueinander"},
    Satz{u"a relation of an unknown kind: relation (.+)", u"die Beziehung %1 ist von unbekannter Art"},
    Satz{u"the change would have to be passed on to other rows: relation (.+)",
         u"wegen der Beziehung %1 müssten andere Datensätze mitgeändert werden"},
    Satz{u"the row refers to one that does not exist: relation (.+)",
         u"zur Beziehung %1 fehlt der zugehörige Datensatz der anderen Tabelle"},
    Satz{u"other rows still refer to this one: relation (.+)",
         u"wegen der Beziehung %1 wird der Datensatz noch gebraucht"},
    Satz{u"a required value is missing: column (.+)", u"das Feld %1 muss ausgefüllt sein"},
    Satz{u"an empty text where none is allowed: column (.+)", u"das Feld %1 darf kein leerer Text sein"},
    Satz{u"a key stands twice: index (.+)", u"im Index %1 gibt es diesen Wert schon"},
    Satz{u"a key value is missing: column (.+)",
         u"das Feld %1 gehört zum Schlüssel und darf nicht leer sein"},
    Satz{u"a key is too long: index (.+)", u"der Wert ist zu lang für den Index %1"},
    Satz{u"an index key is too long for its page", u"ein Wert ist zu lang für seinen Index"},
    Satz{u"an index tree grows too deep", u"ein Index hat zu viele Stufen"},
    Satz{u"there are no automatic numbers left: column (.+)",
         u"für das Feld %1 sind keine automatischen Nummern mehr frei"},
    Satz{u"the value does not have the column's type: column (.+)",
         u"der Wert ist nicht von der Art des Feldes %1"},
    Satz{u"the number is out of the column's range: column (.+)", u"die Zahl ist zu groß für das Feld %1"},
    Satz{u"the value is longer than the column: column (.+)", u"der Wert ist zu lang für das Feld %1"},
    Satz{u"the number has another scale: column (.+)",
         u"die Zahl hat zu viele Nachkommastellen für das Feld %1"},
    Satz{u"the number has too many digits: column (.+)", u"die Zahl hat zu viele Ziffern für das Feld %1"},
    Satz{u"a row needs one value, or none, per column", u"die Zahl der Werte ist nicht die Zahl der Felder"},
    Satz{u"a row is larger than a page can hold", u"der Datensatz ist zu groß"},
    Satz{u"there is no room for the pointer to a moved row",
         u"für den Datensatz ist kein Platz auf seiner Seite"},
    Satz{u"a long value is larger than 1 GiB", u"ein langer Text ist größer als 1 GB"},
    Satz{u"the file would grow beyond 2 GiB", u"die Datei würde größer als 2 GB"},
};

// What is wrong with a query.
constexpr std::array kZurAbfrage{
    Satz{u"there is no table (.+)", u"%1"},
    Satz{u"there is no such table", u"ihr Name fehlt im Verzeichnis der Tabellen"},
    Satz{u"there is no column (.+)", u"%1"},
    Satz{u"columns of types that do not compare: (.+) and (.+)", u"%1 und %2"},
    Satz{u"column (.+) cannot be compared with (.+)", u"das Feld %1 lässt sich nicht mit %2 vergleichen"},
    Satz{u"column (.+) has no order", u"nach dem Feld %1 lässt sich nicht ordnen"},
    Satz{u"a value is not of its index column's type", u"ein Wert passt nicht zu seinem Index"},
    Satz{u"the query is longer than 64,000 characters", u"sie ist länger als 64.000 Zeichen"},
    Satz{u"the query ends too early at character (\\d+)", u"sie endet zu früh, nämlich bei Zeichen %1"},
    Satz{u"not understood: (.*) at character (\\d+)", u"%1 bei Zeichen %2"},
};

// What the query should have said there instead.
constexpr std::array kErwartungen{
    Satz{u"the closing bracket is missing", u"die schließende eckige Klammer fehlt"},
    Satz{u"a name must stand between the brackets", u"zwischen den eckigen Klammern muss ein Name stehen"},
    Satz{u"the closing quote is missing", u"das schließende Anführungszeichen fehlt"},
    Satz{u"a number has digits and at most one point", u"eine Zahl hat Ziffern und höchstens einen Punkt"},
    Satz{u"the number has too many digits", u"die Zahl hat zu viele Ziffern"},
    Satz{u"a query starts with SELECT", u"eine Abfrage beginnt mit SELECT"},
    Satz{u"expected a comma or FROM", u"erwartet wird ein Komma oder FROM"},
    Satz{u"expected a closing parenthesis", u"erwartet wird eine schließende Klammer"},
    Satz{u"expected the name of a table", u"erwartet wird der Name einer Tabelle"},
    Satz{u"expected the name of a column", u"erwartet wird der Name eines Feldes"},
    Satz{u"expected a column, a text or a number", u"erwartet wird ein Feld, ein Text oder eine Zahl"},
    Satz{u"expected a number", u"erwartet wird eine Zahl"},
    Satz{u"expected a comma, ASC, DESC or the end", u"erwartet wird ein Komma, ASC, DESC oder das Ende"},
    Satz{u"expected (.+) or the end", u"erwartet wird %1 oder das Ende"},
    Satz{u"expected (\\S+)", u"erwartet wird %1"},
    Satz{u"too many columns", u"es sind zu viele Felder"},
    Satz{u"too many tables", u"es sind zu viele Tabellen"},
    Satz{u"too many parentheses", u"es sind zu viele Klammern"},
    Satz{u"the first join must stand in parentheses", u"der erste JOIN muss in Klammern stehen"},
    Satz{u"a comparison needs a column", u"ein Vergleich braucht ein Feld"},
    Satz{u"ON compares a column of each side", u"ON vergleicht je ein Feld der beiden Seiten"},
    Satz{u"a table can be named only once in FROM", u"in FROM steht jede Tabelle nur einmal"},
    Satz{u"the table is not part of this FROM or join", u"die Tabelle gehört nicht zu diesem FROM oder JOIN"},
    Satz{u"several tables have this column; name the table too",
         u"mehrere Tabellen haben dieses Feld, der Name der Tabelle muss dabeistehen"},
};

QRegularExpression alsMuster(QStringView englisch) {
  return QRegularExpression(QRegularExpression::anchoredPattern(englisch),
                            QRegularExpression::DotMatchesEverythingOption);
}

QString eingesetzt(QStringView deutsch, const QRegularExpressionMatch& fund) {
  switch (fund.lastCapturedIndex()) {
    case 1:
      return deutsch.toString().arg(fund.captured(1));
    case 2:
      return deutsch.toString().arg(fund.captured(1), fund.captured(2));
    case 3:
      return deutsch.toString().arg(fund.captured(1), fund.captured(2), fund.captured(3));
    default:
      return deutsch.toString();
  }
}

template <std::size_t anzahl>
std::optional<QString> ausTafel(const std::array<Satz, anzahl>& tafel, const QString& satz) {
  for (const Satz& bekannt : tafel) {
    const QRegularExpressionMatch fund = alsMuster(bekannt.englisch).match(satz);
    if (fund.hasMatch()) return eingesetzt(bekannt.deutsch, fund);
  }
  return std::nullopt;
}

// "not understood: X at character 7; expected FROM": both halves.
std::optional<QString> mitErwartung(const QString& satz) {
  const QRegularExpressionMatch fund = alsMuster(u"(.* at character \\d+); (.+)").match(satz);
  if (!fund.hasMatch()) return std::nullopt;
  const std::optional<QString> stelle = ausTafel(kZurAbfrage, fund.captured(1));
  const std::optional<QString> erwartung = ausTafel(kErwartungen, fund.captured(2));
  if (!stelle || !erwartung) return std::nullopt;
  return *stelle + u"; "_s + *erwartung;
}

}  // namespace

QString aufDeutsch(const std::string& satz) {
  const QString englisch = QString::fromStdString(satz);
  if (const auto deutsch = ausTafel(kZurDatei, englisch)) return *deutsch;
  if (const auto deutsch = ausTafel(kZumSchreiben, englisch)) return *deutsch;
  if (const auto deutsch = mitErwartung(englisch)) return *deutsch;
  return ausTafel(kZurAbfrage, englisch).value_or(englisch);
}

}  // namespace pelvanto
