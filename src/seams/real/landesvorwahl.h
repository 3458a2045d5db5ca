#pragma once

#include <QLocale>

namespace pelvanto {

// The international dialling code (ITU-T E.164) of the locale's country; 0 where it names none or one outside
// the table (Europe, and the countries where German is at home).
int landesvorwahlVon(const QLocale& schema);

}  // namespace pelvanto
