#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace pelvanto {

// The code page of the settings file and the logs. Its five unused bytes stand for the control characters of
// the same code, so that every byte survives reading and writing.
QString ausWindows1252(QByteArrayView bytes);
// A character that the code page lacks becomes its base letter (ő: o), or "?" where it has none.
QByteArray nachWindows1252(const QString& text);

}  // namespace pelvanto
