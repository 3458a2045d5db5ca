#include "shell/listen_ansicht.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QMetaMethod>
#include <QStyledItemDelegate>

#include <algorithm>

#include "shell/listen_modell.h"
#include "shell/twips.h"
#include "support/einzeilig.h"

namespace pelvanto {

namespace {

// Texts of several lines are shown on one.
class EinzeiligeZelle : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  QString displayText(const QVariant& wert, const QLocale&) const override {
    return einzeilig(wert.toString());
  }
};

}  // namespace

ListenAnsicht::ListenAnsicht(Liste& liste, QWidget* eltern)
    : QTreeView(eltern), liste_(liste), modell_(new ListenModell(this)) {
  setModel(modell_);
  setItemDelegate(new EinzeiligeZelle(this));
  setUniformRowHeights(true);
  setRootIsDecorated(false);
  setItemsExpandable(false);
  setIndentation(0);
  setAllColumnsShowFocus(true);
  setSelectionMode(ExtendedSelection);
  setSelectionBehavior(SelectRows);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
  setWordWrap(false);
  header()->setStretchLastSection(false);
  header()->setSectionsClickable(true);
  header()->setSectionsMovable(false);
  header()->setHighlightSections(false);
  header()->setMinimumSectionSize(0);  // whoever does not want a column on paper pushes it together
  connect(header(), &QHeaderView::sectionClicked, this, &ListenAnsicht::spalteAngeklickt);
  connect(header(), &QHeaderView::sectionResized, this,
          [this](int spalte, int, int neu) { breiteGeaendert(spalte, neu); });
}

void ListenAnsicht::eintragen() {
  liste_.breite = twips(width());
  if (gezeigterStand_ != liste_.stand()) return;
  std::vector<bool> markiert(static_cast<std::size_t>(liste_.anzahl()));
  for (const QItemSelectionRange& bereich : selectionModel()->selection()) {
    std::fill(markiert.begin() + bereich.top(), markiert.begin() + bereich.bottom() + 1, true);
  }
  for (int zeile = 0; zeile < liste_.anzahl(); ++zeile)
    liste_.markieren(zeile, markiert[static_cast<std::size_t>(zeile)]);
}

void ListenAnsicht::zeigen() {
  if (gezeigterStand_ != liste_.stand()) {
    const int zeile = currentIndex().row();
    const QString schluessel =
        currentIndex().isValid() ? modell_->zeilen()[static_cast<std::size_t>(zeile)].schluessel : QString();
    const std::vector<Zeile>& neue = liste_.zeilen();
    setztBreiten_ = true;  // a reset drops and makes the sections anew
    modell_->uebernehmen(liste_);
    setztBreiten_ = false;
    gezeigterStand_ = liste_.stand();
    if (!neue.empty()) auswahlSetzen(schluessel, zeile);
  }
  breitenSetzen();
  header()->setSortIndicatorShown(liste_.sortierspalte().has_value());
  header()->setSortIndicator(liste_.sortierspalte().value_or(-1),
                             liste_.aufsteigend() ? Qt::AscendingOrder : Qt::DescendingOrder);
}

// Rows that were selected before stay so; the current row is found again by its key, and after deleting the
// row that took its place.
void ListenAnsicht::auswahlSetzen(const QString& aktuellerSchluessel, int aktuelleZeile) {
  const std::vector<Zeile>& zeilen = modell_->zeilen();
  const int letzteSpalte = modell_->columnCount() - 1;
  const int anzahl = static_cast<int>(zeilen.size());
  auto markiert = [&](int zeile) { return zeilen[static_cast<std::size_t>(zeile)].markiert; };
  QItemSelection auswahl;
  for (int zeile = 0; zeile < anzahl; ++zeile) {
    if (!markiert(zeile)) continue;
    const int erste = zeile;
    while (zeile + 1 < anzahl && markiert(zeile + 1)) ++zeile;
    auswahl.append(QItemSelectionRange(modell_->index(erste, 0), modell_->index(zeile, letzteSpalte)));
  }
  if (aktuelleZeile < 0 || letzteSpalte < 1) return;
  const auto gefunden = std::find_if(zeilen.begin(), zeilen.end(), [&](const Zeile& zeile) {
    return zeile.schluessel == aktuellerSchluessel;
  });
  const int neueZeile = gefunden != zeilen.end() ? static_cast<int>(gefunden - zeilen.begin())
                                                 : std::min(aktuelleZeile, anzahl - 1);
  selectionModel()->setCurrentIndex(modell_->index(neueZeile, 1), QItemSelectionModel::NoUpdate);
  selectionModel()->select(auswahl, QItemSelectionModel::ClearAndSelect);
}

void ListenAnsicht::breitenSetzen() {
  setztBreiten_ = true;
  const std::vector<Spalte>& spalten = liste_.spalten();
  for (std::size_t i = 0; i < spalten.size() && static_cast<int>(i) < header()->count(); ++i) {
    const int spalte = static_cast<int>(i);
    // A column that was pushed together can be pulled out again, the first one cannot.
    const bool versteckt = i == 0 && spalten[i].breite == 0;
    setColumnHidden(spalte, versteckt);
    if (!versteckt) header()->resizeSection(spalte, pixel(spalten[i].breite));
  }
  setztBreiten_ = false;
}

void ListenAnsicht::breiteGeaendert(int spalte, int pixel) {
  if (setztBreiten_ || static_cast<std::size_t>(spalte) >= liste_.spalten().size()) return;
  liste_.spaltenbreiteSetzen(spalte, twips(pixel));
}

void ListenAnsicht::keyPressEvent(QKeyEvent* ereignis) {
  if (ereignis->key() == Qt::Key_Delete) {
    emit loeschenGewuenscht();
    return;
  }
  const bool istEnter = ereignis->key() == Qt::Key_Return || ereignis->key() == Qt::Key_Enter;
  if (istEnter && isSignalConnected(QMetaMethod::fromSignal(&ListenAnsicht::oeffnenGewuenscht))) {
    if (ereignis->isAutoRepeat()) return;
    // The row with the frame is meant, also by somebody who has just come by the Tab key.
    if (!selectionModel()->hasSelection() && currentIndex().isValid())
      selectionModel()->select(currentIndex(), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    emit oeffnenGewuenscht(gewaehlteZeile());
    return;
  }
  const int ziffer = ereignis->key() - Qt::Key_0;
  if (ereignis->modifiers().testFlag(Qt::ControlModifier) && ziffer >= 1 && ziffer < modell_->columnCount()) {
    emit spalteAngeklickt(ziffer);
    return;
  }
  QTreeView::keyPressEvent(ereignis);
}

void ListenAnsicht::mouseDoubleClickEvent(QMouseEvent* ereignis) {
  QTreeView::mouseDoubleClickEvent(ereignis);
  if (ereignis->button() == Qt::LeftButton) emit oeffnenGewuenscht(gewaehlteZeile());
}

// Of several selected rows the one with the frame, or else the first one.
int ListenAnsicht::gewaehlteZeile() const {
  const QModelIndexList gewaehlte = selectionModel()->selectedRows(1);
  if (gewaehlte.isEmpty()) return -1;
  int erste = gewaehlte.front().row();
  for (const QModelIndex& zeile : gewaehlte) {
    if (zeile.row() == currentIndex().row()) return zeile.row();
    erste = std::min(erste, zeile.row());
  }
  return erste;
}

// Widths of columns without a mouse.
void ListenAnsicht::contextMenuEvent(QContextMenuEvent* ereignis) {
  if (modell_->columnCount() == 0) return;
  QMenu menue(this);
  for (int spalte = 1; spalte < modell_->columnCount(); ++spalte) {
    const QString name = modell_->headerData(spalte, Qt::Horizontal).toString();
    menue.addAction(QStringLiteral("Breite von „%1“ dem Inhalt anpassen").arg(name), this,
                    [this, spalte] { resizeColumnToContents(spalte); });
  }
  menue.exec(ereignis->globalPos());
}

}  // namespace pelvanto
