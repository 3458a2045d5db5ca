#include "shell/listen_modell.h"

namespace pelvanto {

namespace {

int qtAusrichtung(Ausrichtung ausrichtung) {
  switch (ausrichtung) {
    case Ausrichtung::Rechts:
      return Qt::AlignRight | Qt::AlignVCenter;
    case Ausrichtung::Mitte:
      return Qt::AlignHCenter | Qt::AlignVCenter;
    case Ausrichtung::Links:
      break;
  }
  return Qt::AlignLeft | Qt::AlignVCenter;
}

}  // namespace

void ListenModell::uebernehmen(const Liste& liste) {
  beginResetModel();
  spalten_ = liste.spalten();
  zeilen_ = liste.zeilen();
  endResetModel();
}

int ListenModell::rowCount(const QModelIndex& eltern) const {
  return eltern.isValid() ? 0 : static_cast<int>(zeilen_.size());
}

int ListenModell::columnCount(const QModelIndex& eltern) const {
  return eltern.isValid() ? 0 : static_cast<int>(spalten_.size());
}

QVariant ListenModell::data(const QModelIndex& index, int rolle) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const auto spalte = static_cast<std::size_t>(index.column());
  if (rolle == Qt::TextAlignmentRole) return qtAusrichtung(spalten_[spalte].ausrichtung);
  if (rolle != Qt::DisplayRole) return {};
  const QStringList& texte = zeilen_[static_cast<std::size_t>(index.row())].texte;
  // The first column is empty: a row's own text plays no part.
  return index.column() > 0 ? texte.value(index.column() - 1) : QString();
}

QVariant ListenModell::headerData(int nummer, Qt::Orientation richtung, int rolle) const {
  if (richtung != Qt::Horizontal || nummer < 0 || nummer >= columnCount()) return {};
  const Spalte& spalte = spalten_[static_cast<std::size_t>(nummer)];
  if (rolle == Qt::DisplayRole) return spalte.beschriftung;
  if (rolle == Qt::TextAlignmentRole) return qtAusrichtung(spalte.ausrichtung);
  return {};
}

}  // namespace pelvanto
