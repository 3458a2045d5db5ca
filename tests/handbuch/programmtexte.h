#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

// The texts of a C++ source, read from its literals.
namespace programmtexte {

// One paragraph of a text as the user would read it: adjacent literals and those joined by "+" are one text,
// "…" stands for what comes in when it is shown (%1, a variable, a call), blanks are reduced to one.
struct Absatz {
  QString text;
  int zeile = 0;
  QString aufruf;    // what the text is handed to, with its object: "protokoll_.fehler", "Satz", "zeigen"
  int argument = 0;  // as which argument of it, from 0
};

std::vector<Absatz> lesen(const QByteArray& quelltext);

// The text with "…" for each place of an argument, and single blanks.
QString vereinheitlicht(QString text);

}  // namespace programmtexte
