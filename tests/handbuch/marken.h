#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace programmtexte {

enum class Markenart { Literal, Name, Zeichen };

// A piece of C++. Adjacent literals are one; comments, preprocessor lines and suffixes of literals are gone.
struct Marke {
  Markenart art;
  QString text;  // of a literal its value
  int zeile = 0;
  bool ist(QLatin1StringView zeichen) const { return art == Markenart::Zeichen && text == zeichen; }
};

std::vector<Marke> marken(const QByteArray& quelltext);

}  // namespace programmtexte
