#pragma once

#include "jet/create/database_builder.h"

namespace pelvanto::beispiel {

// The tables of Verbindo.mdb that Pelvanto knows, with their columns, widths and indexes, among columns that
// only Verbindo itself uses.
jet::create::TableSpec schemaAdressen();
jet::create::TableSpec schemaNamensliste();
jet::create::TableSpec schemaPersonenGruppen();
jet::create::TableSpec schemaPersonenGruppenBezeichnungen();
jet::create::TableSpec schemaVornamen();

}  // namespace pelvanto::beispiel
