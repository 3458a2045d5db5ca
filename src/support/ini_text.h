#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace pelvanto {

// The bytes of a settings file, as the private-profile functions of Windows see them: "[section]" lines, then
// "key=value" lines; names without case; the first section and the first key of a name count; ";" starts a
// comment line. Blanks around names and values do not count, nor does a pair of quotes around a value.
class INIText {
 public:
  explicit INIText(QByteArray bytes) : bytes_(std::move(bytes)) {}

  // nullopt when the section or the key is missing.
  std::optional<QString> wert(const QString& Abschnitt, const QString& Schluessel) const;
  // Changes only the value's own bytes; a missing key goes to the end of its section (before blank lines), a
  // missing section to the end of the file. Line breaks and zero characters become blanks.
  void setzen(const QString& Abschnitt, const QString& Schluessel, const QString& Wert);
  const QByteArray& bytes() const { return bytes_; }

 private:
  struct Bereich {
    qsizetype anfang = 0, ende = 0;
  };
  struct Fund {
    std::optional<Bereich> wert;  // of the value, without outer blanks
    std::optional<qsizetype>
        anhang;  // end of the section's last line that is not blank; set with the section
  };
  Fund suchen(const QString& Abschnitt, const QString& Schluessel) const;
  // Without outer blanks and tabs.
  Bereich getrimmt(Bereich bereich) const;
  QString text(Bereich bereich) const;
  QByteArray zeilenende() const;

  QByteArray bytes_;
};

}  // namespace pelvanto
