#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "jet/create/database_builder.h"

namespace pelvanto::beispiel {

using Text = std::u16string;
using TextOderNull = std::optional<Text>;
using ZahlOderNull = std::optional<std::int32_t>;

// Rows of Verbindo's tables, in the order in which they are stored. What stays empty is Null.
struct Person {
  std::int32_t id = 0;
  TextOderNull namen{};
  TextOderNull adresse{};
  TextOderNull telefon{};
  bool ustPauschaliert = false;
  TextOderNull uidNummer{};
  TextOderNull iban{};
  TextOderNull bic{};
  TextOderNull kurzzeichen{};
  TextOderNull notiz{};  // memo
  ZahlOderNull familie{};
  ZahlOderNull firma{};
  ZahlOderNull keineAnrede{};
  TextOderNull besondereBriefanrede{};
  TextOderNull eMail{};
  TextOderNull faxNummern{};
  ZahlOderNull du{};
  ZahlOderNull keinFax = 0;
  ZahlOderNull keinMail = 0;
  std::optional<double> geburtsdatum{};  // days since 1899-12-30
  std::optional<std::int64_t> umsatz{};  // 1/10,000
};

struct Gruppe {
  std::int32_t id = 0;
  TextOderNull bezeichnung{};
};

struct Mitgliedschaft {
  ZahlOderNull person{};
  ZahlOderNull gruppe{};
  ZahlOderNull menge{};  // GrosseGanzeZahl
};

struct Vorname {
  Text vorname{};
  bool titel = false;
  bool titelOben = false;
  bool akademischerGrad = false;
  bool maennlich = false;
  ZahlOderNull anzahl = 0;
};

struct Anschrift {
  std::int32_t idNummer = 0;
  Text anrede{};
  Text vorname{};
  Text famname{};
  Text plz{};
  Text ort{};
  Text strasse{};
  bool du = false;
};

struct VerbindoDaten {
  std::vector<Person> personen;
  std::vector<Gruppe> gruppen;
  std::vector<Mitgliedschaft> mitglieder;
  std::vector<Vorname> vornamen;
  std::vector<Anschrift> adressen;
};

struct Tabellenoptionen {
  bool nebenindexe = true;         // false: primary keys only
  bool geloeschteZeilen = false;   // copies of rows, deleted, between the others
  bool verschobeneZeilen = false;  // some rows stand on other pages than their place in the order
};

// The tables of Verbindo.mdb with these rows. Errors: those of the builder.
void tabellenBauen(jet::create::DatabaseBuilder& datenbank, const VerbindoDaten& daten,
                   const Tabellenoptionen& optionen = {});

}  // namespace pelvanto::beispiel
