#pragma once

#include <QString>
#include <QStringList>

#include <ostream>

// How GoogleTest shows Qt's texts.
inline void PrintTo(const QString& text, std::ostream* strom) { *strom << '"' << text.toStdString() << '"'; }
inline void PrintTo(const QStringList& liste, std::ostream* strom) {
  for (const QString& text : liste) {
    *strom << "\n  \"" << text.toStdString() << '"';
  }
}
