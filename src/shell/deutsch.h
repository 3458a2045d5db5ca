#pragma once

class QObject;

namespace pelvanto {

// Qt's own texts in German (menus of text fields, print and file dialogs), as long as `lebensdauer` lives.
// False where the translation is not installed: they stay English.
bool qtTexteAufDeutsch(QObject* lebensdauer);

}  // namespace pelvanto
