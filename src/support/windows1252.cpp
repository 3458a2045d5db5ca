#include "support/windows1252.h"

#include <QList>

#include <array>
#include <optional>

namespace pelvanto {

namespace {

// Bytes 0x80 to 0x9F; the others are the characters of the same code.
constexpr std::array<char16_t, 32> hoheSteuerzeichen = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
constexpr char16_t ersteHohe = 0x80;

std::optional<char> alsByte(char32_t zeichen) {
  if (zeichen < ersteHohe || (zeichen >= 0xA0 && zeichen <= 0xFF)) {
    return static_cast<char>(zeichen);
  }
  for (size_t i = 0; i < hoheSteuerzeichen.size(); ++i) {
    if (hoheSteuerzeichen.at(i) == zeichen) {
      return static_cast<char>(ersteHohe + i);
    }
  }
  return std::nullopt;
}

char ersatz(char32_t zeichen) {
  const QString zerlegt = QString::fromUcs4(&zeichen, 1).normalized(QString::NormalizationForm_KD);
  if (zerlegt.size() > 1 && zerlegt.at(0).isLetter()) {
    return alsByte(zerlegt.at(0).unicode()).value_or('?');
  }
  return '?';
}

}  // namespace

QString ausWindows1252(QByteArrayView bytes) {
  QString text;
  text.reserve(bytes.size());
  for (const char byte : bytes) {
    const auto code = static_cast<unsigned char>(byte);
    const bool hoch = code >= ersteHohe && code < ersteHohe + hoheSteuerzeichen.size();
    text += QChar(hoch ? hoheSteuerzeichen.at(code - ersteHohe) : static_cast<char16_t>(code));
  }
  return text;
}

QByteArray nachWindows1252(const QString& text) {
  QByteArray bytes;
  bytes.reserve(text.size());
  for (const char32_t zeichen : text.normalized(QString::NormalizationForm_C).toUcs4()) {
    const std::optional<char> byte = alsByte(zeichen);
    bytes += byte ? *byte : ersatz(zeichen);
  }
  return bytes;
}

}  // namespace pelvanto
