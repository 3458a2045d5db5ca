#pragma once

#include <QTreeView>

#include "lists/liste.h"

namespace pelvanto {

class ListenModell;

// Shows a result list in columns. Selection, widths of columns and its own width go into the list before each
// action (`eintragen`); after it `zeigen` shows what has changed.
class ListenAnsicht : public QTreeView {
  Q_OBJECT
 public:
  // `liste` must outlive the view.
  ListenAnsicht(Liste& liste, QWidget* eltern);

  void eintragen();
  void zeigen();

 signals:
  // A heading was clicked, or its column chosen by keyboard (0 = the hidden first column).
  void spalteAngeklickt(int spalte);
  void loeschenGewuenscht();
  // A double click, or the Enter key: on the selected row, -1 when there is none.
  void oeffnenGewuenscht(int zeile);

 protected:
  void keyPressEvent(QKeyEvent* ereignis) override;
  void mouseDoubleClickEvent(QMouseEvent* ereignis) override;
  void contextMenuEvent(QContextMenuEvent* ereignis) override;

 private:
  int gewaehlteZeile() const;
  void breiteGeaendert(int spalte, int pixel);
  void breitenSetzen();
  void auswahlSetzen(const QString& aktuellerSchluessel, int aktuelleZeile);

  Liste& liste_;
  ListenModell* modell_;
  int gezeigterStand_ = -1;
  bool setztBreiten_ = false;
};

}  // namespace pelvanto
