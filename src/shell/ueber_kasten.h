#pragma once

#include <QDialog>

#include "steps/hilfe.h"

class QDialogButtonBox;

namespace pelvanto {

// Name and version of the program, its licences, its keys, and the folder of its logs.
class UeberKasten : public QDialog {
  Q_OBJECT
 public:
  UeberKasten(const Ueber& ueber, QWidget* eltern);

 signals:
  void handbuchGewuenscht();
  void ordnerGewuenscht();

 private:
  QLayout* kopf(const QString& name);
  QLayout* ordnerzeile(const QString& ordner);
  QDialogButtonBox* knopfleiste();
};

}  // namespace pelvanto
