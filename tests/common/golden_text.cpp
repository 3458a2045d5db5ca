#include "common/golden_text.h"

#include <QByteArray>

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace pelvanto::test {

namespace {

QChar maskiert(QChar zeichen) {
  switch (zeichen.unicode()) {
    case u't':
      return u'\t';
    case u'n':
      return u'\n';
    case u'r':
      return u'\r';
    case u'0':
      return QChar(0);
    default:
      return zeichen;
  }
}

QString feldLesen(QStringView feld) {
  if (feld == u"\\N") return QString();
  QString text = QStringLiteral("");
  for (qsizetype i = 0; i < feld.size(); ++i) {
    if (feld[i] != u'\\' || i + 1 == feld.size()) {
      text.append(feld[i]);
    } else if (feld[++i] == u'u') {
      text.append(QChar(feld.mid(i + 1, 4).toUShort(nullptr, 16)));
      i += 4;
    } else {
      text.append(maskiert(feld[i]));
    }
  }
  return text;
}

}  // namespace

std::vector<QString> zeilenLesen(const std::filesystem::path& datei) {
  std::ifstream strom(datei, std::ios::binary);
  if (!strom) throw std::runtime_error("cannot read " + datei.string());
  const std::string alles{std::istreambuf_iterator<char>(strom), {}};
  std::vector<QString> zeilen;
  for (const QString& zeile :
       QString::fromUtf8(alles.data(), static_cast<qsizetype>(alles.size())).split(u'\n')) {
    zeilen.push_back(zeile);
  }
  return zeilen;
}

QStringList felderLesen(const QString& zeile) {
  QStringList felder;
  for (const QStringView feld : QStringView(zeile).split(u'\t')) felder.append(feldLesen(feld));
  return felder;
}

}  // namespace pelvanto::test
