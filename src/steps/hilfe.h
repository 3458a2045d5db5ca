#pragma once

#include "steps/umgebung.h"

namespace pelvanto {

// What the window tells about the program.
struct Ueber {
  QString name;  // with the version
  QString zweck;
  QString tasten;
  QString lizenzen;
  QString protokollordner;
};

Ueber ueberPelvanto(const Prozesswerte& werte);

// Opens the handbook that lies beside the program: the web page, or else the PDF file. Tells what it could
// not do.
void handbuchOeffnen(Umgebung& umgebung);
// Opens the folder of the logs in the file manager.
void protokollordnerOeffnen(Umgebung& umgebung);

}  // namespace pelvanto
