#include <QLatin1StringView>

#include <array>
#include <utility>

#include "payment/daten_typen.h"
#include "support/blanks.h"

namespace pelvanto {

namespace {

// What must not stand in files, in the order of the replacements.
struct Ersetzung {
  char16_t zeichen;
  bool durchBlank;
};
constexpr std::array<Ersetzung, 9> ersetzungen = {{{u'&', false},
                                                   {u'\'', false},
                                                   {u'\0', false},
                                                   {u'\t', true},
                                                   {u'\n', true},
                                                   {u'\r', true},
                                                   {0x1F, false},
                                                   {u'"', false},
                                                   {0xA0, true}}};

constexpr QStringView immerErlaubt = u"-.+:!$%&(),/=?_`§´ÄÖÜßäöü°";

bool istBuchstabeOderZiffer(char16_t zeichen) {
  return (zeichen >= u'0' && zeichen <= u'9') || (zeichen >= u'a' && zeichen <= u'z') ||
         (zeichen >= u'A' && zeichen <= u'Z');
}

}  // namespace

QString TextBereinigen(const QString& text, bool aeussereBehalten, const QString& erlaubt) {
  QString ergebnis = ohneAeussereBlanks(text);
  for (const Ersetzung& ersetzung : ersetzungen) {
    const QChar zeichen(ersetzung.zeichen);
    if (erlaubt.contains(zeichen)) {
      continue;
    }
    if (ersetzung.durchBlank || (zeichen.isNull() && aeussereBehalten)) {
      ergebnis.replace(zeichen, u' ');
    } else {
      ergebnis.remove(zeichen);
    }
  }
  if (!aeussereBehalten) {
    ergebnis = ohneAeussereBlanks(ergebnis);
  }
  return blanksReduziert(ergebnis);
}

QString UmlauteErsetzen(const QString& text) {
  static constexpr std::array<std::pair<char16_t, const char*>, 7> umlaute = {
      {{u'ä', "ae"}, {u'ö', "oe"}, {u'ü', "ue"}, {u'Ä', "AE"}, {u'Ö', "OE"}, {u'Ü', "UE"}, {u'ß', "ss"}}};
  QString ergebnis = text;
  for (const auto& [umlaut, ersatz] : umlaute) {
    ergebnis.replace(QChar(umlaut), QLatin1StringView(ersatz));
  }
  return ergebnis;
}

ushort TastenFiltern(ushort zeichen, bool blankErlaubt, const QString& zusaetzlich, bool enterSperren,
                     const QString& verboten) {
  constexpr ushort strgC = 3;
  constexpr ushort ruecktaste = 8;
  constexpr ushort enter = 13;
  constexpr ushort strgV = 22;
  constexpr ushort strgX = 24;
  bool erlaubt = false;
  if (zeichen == strgC || zeichen == ruecktaste || zeichen == strgV || zeichen == strgX) {
    erlaubt = true;
  } else if (zeichen == u' ') {
    erlaubt = blankErlaubt;
  } else if (zeichen == enter) {
    erlaubt = !enterSperren;
  } else if (istBuchstabeOderZiffer(zeichen) || immerErlaubt.contains(QChar(zeichen))) {
    erlaubt = ohneAeussereBlanks(verboten).isEmpty() || !verboten.contains(QChar(zeichen));
  } else {
    erlaubt = !ohneAeussereBlanks(zusaetzlich).isEmpty() && zusaetzlich.contains(QChar(zeichen));
  }
  return erlaubt ? zeichen : ushort(0);
}

}  // namespace pelvanto
