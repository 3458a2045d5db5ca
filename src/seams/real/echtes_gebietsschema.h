#pragma once

#include <QLocale>

#include "seams/gebietsschema.h"

namespace pelvanto {

// The characters and the place of the currency sign as the system gives them.
class EchtesGebietsschema : public Gebietsschema {
 public:
  Zahlenzeichen zahlenzeichen() const override;
  int landesvorwahl() const override;
};

// A locale without a grouping character gives QChar(), one without a currency sign an empty text.
Zahlenzeichen zahlenzeichenAus(const QLocale& schema);

}  // namespace pelvanto
