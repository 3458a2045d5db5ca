#pragma once

#include <QByteArray>
#include <QString>

namespace pelvanto {

// Letters outside ASCII as banks accept them: the base letter of accented Latin ones, a full stop for letters
// of other scripts, blanks for signs; "<" and ">" become round brackets; control characters go. Pure ASCII,
// at most two letters for one character.
QString transliteriert(const QString& text);
// A name, address or remittance text for the payment file: umlauts folded, cleaned, transliterated, trimmed,
// runs of blanks reduced.
QString SepaText(const QString& text);
// As XML content: ASCII only, "&", "<", ">" and quotes escaped.
QByteArray xmlInhalt(const QString& text);

}  // namespace pelvanto
