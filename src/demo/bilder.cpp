#include "demo/bilder.h"

#include <QApplication>
#include <QPixmap>
#include <QWidget>

#include "demo/dunkle_palette.h"

namespace pelvanto::vorfuehrung {

bool bilderSpeichern(QWidget& fenster, const QString& ordner, const QString& name) {
  const QPalette helle = QApplication::palette();
  struct Desktop {
    const char* name;
    QPalette palette;
  };
  const Desktop desktops[] = {{"hell", helle}, {"dunkel", dunklePalette()}};
  bool gelungen = true;
  for (const Desktop& desktop : desktops) {
    QApplication::setPalette(desktop.palette);
    QApplication::processEvents();
    for (const int prozent : {100, 200}) {
      QPixmap bild(fenster.size() * prozent / 100);
      bild.setDevicePixelRatio(prozent / 100.0);
      fenster.render(&bild);
      gelungen &= bild.save(QStringLiteral("%1/%2-%3-%4.png").arg(ordner, name, desktop.name).arg(prozent));
    }
  }
  QApplication::setPalette(helle);
  QApplication::processEvents();
  return gelungen;
}

}  // namespace pelvanto::vorfuehrung
