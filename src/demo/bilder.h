#pragma once

#include <QString>

class QWidget;

namespace pelvanto::vorfuehrung {

// Pictures of the window on a light and a dark desktop, at 100 % and 200 %, as files
// "ORDNER/NAME-hell-100.png", ... False if a file cannot be written.
bool bilderSpeichern(QWidget& fenster, const QString& ordner, const QString& name);

}  // namespace pelvanto::vorfuehrung
