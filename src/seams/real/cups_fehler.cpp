#include "seams/real/cups_fehler.h"

#include <QLibrary>

namespace pelvanto {

#ifdef _WIN32

QString letzterCUPSFehler() { return {}; }

#else

QString letzterCUPSFehler() {
  // Qt prints through this library; linking it would force it on systems that print otherwise.
  QLibrary cups(QStringLiteral("cups"), 2);
  using Status = int (*)();
  using Beschreibung = const char* (*)();
  const auto status = reinterpret_cast<Status>(cups.resolve("cupsLastError"));
  const auto beschreibung = reinterpret_cast<Beschreibung>(cups.resolve("cupsLastErrorString"));
  if (!status || !beschreibung) return {};
  constexpr int kErsterMisserfolg = 0x100;  // below: done, some with remarks
  const int wert = status();
  if (wert >= 0 && wert < kErsterMisserfolg) return {};
  QString text = QString::fromUtf8(beschreibung()).trimmed();
  if (text.endsWith(u'.')) text.chop(1);
  return text.isEmpty() ? QStringLiteral("Status %1").arg(wert) : text;
}

#endif

}  // namespace pelvanto
