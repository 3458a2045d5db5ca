#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <unordered_set>
#include <vector>

namespace pelvanto {

enum class Ausrichtung { Links = 0, Rechts = 1, Mitte = 2 };

struct Spalte {
  QString schluessel;
  QString beschriftung;
  int breite = 0;  // twips; 0 = hidden
  Ausrichtung ausrichtung = Ausrichtung::Links;
  bool operator==(const Spalte&) const = default;
};

struct Zeile {
  QString schluessel;  // "Msg_" + ID in decimal; unique in its list
  QStringList texte;   // sub-items 1, 2, ...: the text of column k stands at k - 1 (column 0 is empty)
  bool markiert = false;

  int id() const;  // the person's ID from the key
};

// A result list as the steps fill it and the window shows it. Once sorting is switched on, it stays on: rows
// that are added later take their place in the order.
class Liste {
 public:
  // `sortierbar` are the keys of the columns whose heading sorts.
  explicit Liste(QStringList sortierbar) : sortierbar_(std::move(sortierbar)) {}

  const std::vector<Spalte>& spalten() const { return spalten_; }
  // In their order as it is shown. Sorts first if rows have come in since; a reference is good until the
  // next change.
  const std::vector<Zeile>& zeilen() const {
    ordnen();
    return zeilen_;
  }
  int anzahl() const { return static_cast<int>(zeilen_.size()); }

  void spaltenSetzen(std::vector<Spalte> spalten);  // replaces the columns, and with them the user's widths
  void spaltenbreiteSetzen(int spalte, int twips);
  void leeren();  // all rows
  // False, and nothing added, when the key is there already.
  bool hinzufuegen(const QString& schluessel, QStringList texte);
  // Fills many rows with one sort at the end; rows with a key that is there already are skipped and counted.
  int hinzufuegen(std::vector<Zeile> zeilen);
  // `feld` counts like Zeile::texte. Does not re-sort.
  void textSetzen(int zeile, int feld, const QString& text);

  void markieren(int zeile, bool markiert);
  // Removes the selected rows; how many there were.
  int MarkierteLoeschen();

  // A click on the heading of column `spalte` (0 = the hidden first): a sortable column sorts ascending, the
  // same one again the other way round; any other column only makes the list forget which it was.
  void spalteAngeklickt(int spalte);
  // Sorted by this column now, and how; nullopt while sorting has not been switched on.
  std::optional<int> sortierspalte() const { return sortierspalte_; }
  bool aufsteigend() const { return aufsteigend_; }

  int breite = 9075;  // the list view's current width, twips; the window keeps it up to date
  // Counts every change of rows, columns or order, so that a view knows when to show anew.
  int stand() const { return stand_; }

 private:
  void ordnen() const;

  QStringList sortierbar_;
  std::vector<Spalte> spalten_;
  // Rows that are added while sorting is on wait at the end until somebody looks: one sort for all of them.
  mutable std::vector<Zeile> zeilen_;
  mutable bool ungeordnet_ = false;
  std::unordered_set<QString> schluessel_;
  QString LetzteSortierSpalte_;
  std::optional<int> sortierspalte_;
  bool aufsteigend_ = true;
  int stand_ = 0;
};

// Key of a person's row, and the row's ID.
QString zeilenschluessel(int id);

}  // namespace pelvanto
