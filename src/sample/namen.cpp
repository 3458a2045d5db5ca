#include "sample/namen.h"

#include <array>

namespace pelvanto::beispiel {

namespace {

constexpr auto vornamenListe = std::to_array<BekannterVorname>({
    {u"Anna", false},     {u"Maria", false},     {u"Theresia", false}, {u"Rosina", false},
    {u"Johanna", false},  {u"Elfriede", false},  {u"Margit", false},   {u"Brigitte", false},
    {u"Gerlinde", false}, {u"Käthe", false},     {u"Hedwig", false},   {u"Sabine", false},
    {u"Petra", false},    {u"Monika", false},    {u"Renate", false},   {u"Ulrike", false},
    {u"Birgit", false},   {u"Silvia", false},    {u"Daniela", false},  {u"Katharina", false},
    {u"Eva", false},      {u"Christine", false}, {u"Andrea", false},   {u"Manuela", false},
    {u"Karin", false},    {u"Bettina", false},   {u"Barbara", false},  {u"Elisabeth", false},
    {u"Veronika", false}, {u"Waltraud", false},  {u"Aloisia", false},  {u"Zita", false},
    {u"Aimée", false},    {u"Bärbel", false},    {u"Sophie", false},   {u"Lena", false},
    {u"Franz", true},     {u"Josef", true},      {u"Johann", true},    {u"Hans", true},
    {u"Karl", true},      {u"Alois", true},      {u"Leopold", true},   {u"Georg", true},
    {u"Jörg", true},      {u"Günther", true},    {u"Jürgen", true},    {u"Otto", true},
    {u"Werner", true},    {u"Manfred", true},    {u"Gerhard", true},   {u"Helmut", true},
    {u"Herbert", true},   {u"Friedrich", true},  {u"Ferdinand", true}, {u"Rudolf", true},
    {u"Stefan", true},    {u"Thomas", true},     {u"Michael", true},   {u"Andreas", true},
    {u"Markus", true},    {u"Martin", true},     {u"Wolfgang", true},  {u"Christian", true},
    {u"Peter", true},     {u"Bernhard", true},   {u"Reinhard", true},  {u"Ignaz", true},
    {u"Matthias", true},  {u"Florian", true},    {u"Lukas", true},     {u"Anton", true},
    {u"Engelbert", true}, {u"Hubert", true},     {u"Norbert", true},   {u"Siegfried", true},
    {u"Walter", true},    {u"André", true},      {u"Kálmán", true},    {u"Björn", true},
    {u"Dominik", true},   {u"Erwin", true},      {u"Fritz", true},     {u"Gottfried", true},
    {u"Heinrich", true},  {u"Ivo", true},        {u"Jakob", true},     {u"Klaus", true},
    {u"Ludwig", true},    {u"Maximilian", true}, {u"Oswald", true},    {u"Paul", true},
    {u"Roland", true},    {u"Simon", true},      {u"Ulrich", true},    {u"Viktor", true},
});

constexpr auto titelListe = std::to_array<std::u16string_view>(
    {u"Mag.", u"Dr.", u"Ing.", u"DI", u"Dipl.-Ing.", u"ÖkR", u"KommR", u"MBA", u"Prof."});

constexpr auto familiennamenListe = std::to_array<std::u16string_view>(
    {u"Aigner",        u"Angerer",      u"Auer",        u"Bachleitner", u"Baumgartner", u"Berger",
     u"Binder",        u"Brandstätter", u"Brunner",     u"Dallinger",   u"Dorfer",      u"Ebner",
     u"Ecker",         u"Eder",         u"Enzenhofer",  u"Fellner",     u"Fischer",     u"Frühwirth",
     u"Fuchs",         u"Furtmüller",   u"Gahleitner",  u"Gierlinger",  u"Grabner",     u"Gruber",
     u"Haas",          u"Hackl",        u"Haider",      u"Haslinger",   u"Hauß",        u"Hinterberger",
     u"Höfler",        u"Hofbauer",     u"Holzinger",   u"Huber",       u"Jungwirth",   u"Kaltenböck",
     u"Karlsböck",     u"Kern",         u"Kirchmayr",   u"Koller",      u"Kreuzer",     u"Lackner",
     u"Lehner",        u"Leitner",      u"Lindorfer",   u"Maier",       u"Mayr",        u"Mitterlehner",
     u"Moser",         u"Mühlböck",     u"Neuhauser",   u"Nöbauer",     u"Öhlinger",    u"Ortner",
     u"Pichler",       u"Pointner",     u"Prammer",     u"Preß",        u"Pühringer",   u"Rabl",
     u"Rammerstorfer", u"Reisinger",    u"Riegler",     u"Roß",         u"Sailer",      u"Schachinger",
     u"Schäfer",       u"Schmid",       u"Schöberl",    u"Schwarz",     u"Stadler",     u"Steinböck",
     u"Stöger",        u"Süß",          u"Traunmüller", u"Übleis",      u"Wagner",      u"Wakolbinger",
     u"Weiß",          u"Wiesinger",    u"Wögerbauer",  u"Zauner",      u"Zehetner",    u"Zöbl"});

constexpr auto orteListe = std::to_array<BekannterOrt>({
    {u"4020", u"Linz"},           {u"4040", u"Lichtenberg"},
    {u"4070", u"Eferding"},       {u"4081", u"Hartkirchen"},
    {u"4100", u"Ottensheim"},     {u"4113", u"St. Martin im Mühlkreis"},
    {u"4115", u"Kleinzell"},      {u"4150", u"Rohrbach"},
    {u"4170", u"Haslach"},        {u"4190", u"Bad Leonfelden"},
    {u"4210", u"Gallneukirchen"}, {u"4240", u"Freistadt"},
    {u"4261", u"Rainbach"},       {u"4320", u"Perg"},
    {u"4400", u"Steyr"},          {u"4560", u"Kirchdorf an der Krems"},
    {u"4600", u"Wels"},           {u"4644", u"Scharnstein"},
    {u"4690", u"Schwanenstadt"},  {u"4722", u"Peuerbach"},
    {u"4780", u"Schärding"},      {u"4840", u"Vöcklabruck"},
    {u"4870", u"Vöcklamarkt"},    {u"4910", u"Ried im Innkreis"},
    {u"5230", u"Mattighofen"},    {u"5280", u"Braunau am Inn"},
});

constexpr auto strassenListe = std::to_array<std::u16string_view>(
    {u"Am Bühel",     u"Am Damm",    u"Bachweg",       u"Bahnhofstr.", u"Dorfplatz",
     u"Feldgasse",    u"Grünau",     u"Gusenweg",      u"Hub Nr.",     u"Innlände",
     u"Kirchenplatz", u"Landstraße", u"Linzer Straße", u"Marktplatz",  u"Mühlbachweg",
     u"Oberdorf",     u"Schulgasse", u"Sonnleiten",    u"Unterberg",   u"Wiesenweg"});

constexpr auto notizListe = std::to_array<std::u16string_view>(
    {u"Kühe",     u"Stall",   u"Umbau", u"Größe",      u"Keimzahl",        u"Milch",
     u"Abholung", u"früh",    u"Tank",  u"neu",        u"Straße gesperrt", u"ruft zurück",
     u"Rechnung", u"bezahlt", u"offen", u"Vertretung", u"Hofübergabe",     u"Sohn",
     u"Tochter",  u"Weide",   u"Silo",  u"geprüft"});

}  // namespace

std::span<const BekannterVorname> vornamen() { return vornamenListe; }
std::span<const std::u16string_view> titel() { return titelListe; }
std::span<const std::u16string_view> familiennamen() { return familiennamenListe; }
std::span<const BekannterOrt> orte() { return orteListe; }
std::span<const std::u16string_view> strassen() { return strassenListe; }
std::span<const std::u16string_view> notizworte() { return notizListe; }

}  // namespace pelvanto::beispiel
