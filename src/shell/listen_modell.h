#pragma once

#include <QAbstractTableModel>

#include <vector>

#include "lists/liste.h"

namespace pelvanto {

// What a list view shows: a copy of the rows and columns of a result list as they stood when it was last
// shown, so that the view never meets a list that a step is just rebuilding.
class ListenModell : public QAbstractTableModel {
  Q_OBJECT
 public:
  explicit ListenModell(QObject* eltern) : QAbstractTableModel(eltern) {}

  // Takes rows and columns anew (a model reset).
  void uebernehmen(const Liste& liste);
  const std::vector<Zeile>& zeilen() const { return zeilen_; }

  int rowCount(const QModelIndex& eltern = {}) const override;
  int columnCount(const QModelIndex& eltern = {}) const override;
  QVariant data(const QModelIndex& index, int rolle = Qt::DisplayRole) const override;
  QVariant headerData(int nummer, Qt::Orientation richtung, int rolle = Qt::DisplayRole) const override;

 private:
  std::vector<Spalte> spalten_;
  std::vector<Zeile> zeilen_;
};

}  // namespace pelvanto
