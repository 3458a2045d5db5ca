#include "payment/zahlungsdatei.h"

#include "payment/sepa_zeichen.h"
#include "payment/zahlungsverkehr.h"

namespace pelvanto {

namespace {

constexpr qsizetype laengsterName = 70;

// Lines with indents, elements with the value between their tags.
class Zeilen {
 public:
  explicit Zeilen(qsizetype geschaetzt) { bytes_.reserve(geschaetzt); }

  Zeilen& zeile(int einzug, QByteArrayView text) {
    bytes_.append(einzug, ' ');
    bytes_ += text;
    bytes_ += "\r\n";
    return *this;
  }
  Zeilen& element(int einzug, QByteArrayView name, const QByteArray& wert) {
    return element(einzug, name, QByteArrayView(), wert);
  }
  Zeilen& element(int einzug, QByteArrayView name, QByteArrayView attribut, const QByteArray& wert) {
    bytes_.append(einzug, ' ');
    bytes_ += '<';
    bytes_ += name;
    bytes_ += attribut;
    bytes_ += '>';
    bytes_ += wert;
    bytes_ += "</";
    bytes_ += name;
    bytes_ += ">\r\n";
    return *this;
  }
  QByteArray bytes() const { return bytes_; }

 private:
  QByteArray bytes_;
};

void nachrichtenkopf(Zeilen& zeilen, const Zahlungsdatei& kopf, const QByteArray& anzahl,
                     const QByteArray& summe) {
  zeilen.zeile(0, R"(<?xml version="1.0" encoding="UTF-8" ?>)")
      .zeile(0, R"(<Document xmlns="ISO:pain.001.001.03")")
      .zeile(0, R"(xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance">)")
      .zeile(4, "<CstmrCdtTrfInitn>")
      .zeile(8, "<GrpHdr>")
      .element(12, "MsgId", xmlInhalt(kopf.meldung))
      .element(12, "CreDtTm", DatumZeitISO(kopf.erstellt).toLatin1())
      .element(12, "NbOfTxs", anzahl)
      .element(12, "CtrlSum", summe)
      .zeile(12, "<InitgPty>")
      .element(16, "Nm", xmlInhalt(SepaText(kopf.absender)))
      .zeile(12, "</InitgPty>")
      .zeile(8, "</GrpHdr>");
}

void auftragskopf(Zeilen& zeilen, const Zahlungsdatei& kopf, const QByteArray& anzahl,
                  const QByteArray& summe) {
  const QByteArray tag = kopf.erstellt.date().toString(QStringLiteral("yyyy-MM-dd")).toLatin1();
  zeilen.zeile(8, "<PmtInf>")
      .element(12, "PmtInfId", xmlInhalt(kopf.meldung))
      .element(12, "PmtMtd", "TRF")
      .element(12, "BtchBookg", anzahl == "1" ? "false" : "true")
      .element(12, "NbOfTxs", anzahl)
      .element(12, "CtrlSum", summe)
      .zeile(12, "<PmtTpInf>")
      .zeile(16, "<SvcLvl>")
      .element(20, "Cd", "SEPA")
      .zeile(16, "</SvcLvl>")
      .zeile(16, "<LclInstrm>")
      .element(20, "Cd", "TRF")
      .zeile(16, "</LclInstrm>")
      .zeile(12, "</PmtTpInf>")
      .element(12, "ReqdExctnDt", tag)
      .zeile(12, "<Dbtr>")
      .element(16, "Nm", xmlInhalt(SepaText(kopf.absender).left(laengsterName)))
      .zeile(12, "</Dbtr>")
      .zeile(12, "<DbtrAcct>")
      .zeile(16, "<Id>")
      .element(20, "IBAN", xmlInhalt(kopf.eigeneIBAN))
      .zeile(16, "</Id>")
      .zeile(12, "</DbtrAcct>")
      .zeile(12, "<DbtrAgt>")
      .zeile(16, "<FinInstnId>")
      .element(20, "BIC", xmlInhalt(kopf.eigeneBIC.trimmed()))
      .zeile(16, "</FinInstnId>")
      .zeile(12, "</DbtrAgt>")
      .element(12, "ChrgBr", "SLEV");
}

void ueberweisungsblock(Zeilen& zeilen, const Ueberweisung& satz) {
  zeilen.zeile(12, "<CdtTrfTxInf>")
      .zeile(16, "<PmtId>")
      .element(20, "EndToEndId", xmlInhalt(satz.AuftraggeberReferenz))
      .zeile(16, "</PmtId>")
      .zeile(16, "<Amt>")
      .element(20, "InstdAmt", R"( Ccy="EUR")", Betragstext(satz.EinzelBetrag))
      .zeile(16, "</Amt>")
      .zeile(16, "<CdtrAgt>")
      .zeile(20, "<FinInstnId>")
      .element(24, "BIC", xmlInhalt(satz.KundeBIC))
      .zeile(20, "</FinInstnId>")
      .zeile(16, "</CdtrAgt>")
      .zeile(16, "<Cdtr>")
      .element(20, "Nm", xmlInhalt(SepaText(satz.KundeName)))
      .zeile(20, "<PstlAdr>")
      .element(24, "AdrLine", xmlInhalt(SepaText(satz.KundeAdresse)))
      .zeile(20, "</PstlAdr>")
      .zeile(16, "</Cdtr>")
      .zeile(16, "<CdtrAcct>")
      .zeile(20, "<Id>")
      .element(24, "IBAN", xmlInhalt(satz.KundeIBAN))
      .zeile(20, "</Id>")
      .zeile(16, "</CdtrAcct>")
      .zeile(16, "<RmtInf>")
      .element(20, "Ustrd", xmlInhalt(SepaText(satz.Verwendungszweck)))
      .zeile(16, "</RmtInf>")
      .zeile(12, "</CdtTrfTxInf>");
}

}  // namespace

std::optional<Waehrung> Gesamtsumme(const UeberweisungT& tabelle) {
  std::optional<Waehrung> summe = Waehrung();
  for (const Ueberweisung& satz : tabelle) {
    summe = summe->plus(satz.EinzelBetrag);
    if (!summe) {
      break;
    }
  }
  return summe;
}

QByteArray Betragstext(Waehrung betrag) {
  const qint64 zehntausendstel = betrag.zehntausendstel();
  // Rounded away from zero at half a cent, as formatting does.
  const qint64 rest = zehntausendstel % 100;
  const qint64 cent = zehntausendstel / 100 + (rest >= 50 ? 1 : 0) - (rest <= -50 ? 1 : 0);
  QByteArray ziffern = QByteArray::number(std::abs(cent)).rightJustified(3, '0');
  ziffern.insert(ziffern.size() - 2, '.');
  return cent < 0 ? '-' + ziffern : ziffern;
}

QByteArray ZahlungsdateiText(const Zahlungsdatei& kopf, const UeberweisungT& tabelle, Waehrung gesamt) {
  constexpr qsizetype kopflaenge = 2048;
  constexpr qsizetype blocklaenge = 1200;
  const auto saetze = static_cast<qsizetype>(tabelle.size());
  const QByteArray anzahl = QByteArray::number(saetze);
  const QByteArray summe = Betragstext(gesamt);
  Zeilen zeilen(kopflaenge + saetze * blocklaenge);
  nachrichtenkopf(zeilen, kopf, anzahl, summe);
  auftragskopf(zeilen, kopf, anzahl, summe);
  for (const Ueberweisung& satz : tabelle) {
    ueberweisungsblock(zeilen, satz);
  }
  zeilen.zeile(8, "</PmtInf>").zeile(4, "</CstmrCdtTrfInitn>").zeile(0, "</Document>");
  return zeilen.bytes();
}

}  // namespace pelvanto
