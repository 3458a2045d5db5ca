#include "payment/zahlungsdatei.h"

#include <algorithm>
#include <initializer_list>

#include "payment/sepa_zeichen.h"
#include "payment/zahlungsverkehr.h"

namespace pelvanto {

namespace {

constexpr qsizetype laengsterName = 70;

// Adds lines and the values between them, all in one step.
void anhaengen(QByteArray& datei, std::initializer_list<QByteArrayView> teile) {
  qsizetype laenge = datei.size();
  for (const QByteArrayView teil : teile) {
    laenge += teil.size();
  }
  const qsizetype anfang = datei.size();
  datei.resize(laenge);
  char* stelle = datei.data() + anfang;
  for (const QByteArrayView teil : teile) {
    stelle = std::copy(teil.begin(), teil.end(), stelle);
  }
}

// Several lines between two values are one literal: no comma is missing.
// NOLINTBEGIN(bugprone-suspicious-missing-comma)
void nachrichtenkopf(QByteArray& datei, const Zahlungsdatei& kopf, const QByteArray& anzahl,
                     const QByteArray& summe) {
  anhaengen(datei, {"<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\r\n"
                    "<Document xmlns=\"ISO:pain.001.001.03\"\r\n"
                    "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\">\r\n"
                    "    <CstmrCdtTrfInitn>\r\n"
                    "        <GrpHdr>\r\n"
                    "            <MsgId>",
                    xmlInhalt(kopf.meldung),
                    "</MsgId>\r\n"
                    "            <CreDtTm>",
                    DatumZeitISO(kopf.erstellt).toLatin1(),
                    "</CreDtTm>\r\n"
                    "            <NbOfTxs>",
                    anzahl,
                    "</NbOfTxs>\r\n"
                    "            <CtrlSum>",
                    summe,
                    "</CtrlSum>\r\n"
                    "            <InitgPty>\r\n"
                    "                <Nm>",
                    xmlInhalt(SepaText(kopf.absender)),
                    "</Nm>\r\n"
                    "            </InitgPty>\r\n"
                    "        </GrpHdr>\r\n"});
}

void auftragskopf(QByteArray& datei, const Zahlungsdatei& kopf, const QByteArray& anzahl,
                  const QByteArray& summe) {
  const QByteArray tag = kopf.erstellt.date().toString(QStringLiteral("yyyy-MM-dd")).toLatin1();
  anhaengen(datei, {"        <PmtInf>\r\n"
                    "            <PmtInfId>",
                    xmlInhalt(kopf.meldung),
                    "</PmtInfId>\r\n"
                    "            <PmtMtd>TRF</PmtMtd>\r\n"
                    "            <BtchBookg>",
                    anzahl == "1" ? "false" : "true",
                    "</BtchBookg>\r\n"
                    "            <NbOfTxs>",
                    anzahl,
                    "</NbOfTxs>\r\n"
                    "            <CtrlSum>",
                    summe,
                    "</CtrlSum>\r\n"
                    "            <PmtTpInf>\r\n"
                    "                <SvcLvl>\r\n"
                    "                    <Cd>SEPA</Cd>\r\n"
                    "                </SvcLvl>\r\n"
                    "                <LclInstrm>\r\n"
                    "                    <Cd>TRF</Cd>\r\n"
                    "                </LclInstrm>\r\n"
                    "            </PmtTpInf>\r\n"
                    "            <ReqdExctnDt>",
                    tag,
                    "</ReqdExctnDt>\r\n"
                    "            <Dbtr>\r\n"
                    "                <Nm>",
                    xmlInhalt(SepaText(kopf.absender).left(laengsterName)),
                    "</Nm>\r\n"
                    "            </Dbtr>\r\n"
                    "            <DbtrAcct>\r\n"
                    "                <Id>\r\n"
                    "                    <IBAN>",
                    xmlInhalt(kopf.eigeneIBAN),
                    "</IBAN>\r\n"
                    "                </Id>\r\n"
                    "            </DbtrAcct>\r\n"
                    "            <DbtrAgt>\r\n"
                    "                <FinInstnId>\r\n"
                    "                    <BIC>",
                    xmlInhalt(kopf.eigeneBIC.trimmed()),
                    "</BIC>\r\n"
                    "                </FinInstnId>\r\n"
                    "            </DbtrAgt>\r\n"
                    "            <ChrgBr>SLEV</ChrgBr>\r\n"});
}

void ueberweisungsblock(QByteArray& datei, const Ueberweisung& satz) {
  anhaengen(datei, {"            <CdtTrfTxInf>\r\n"
                    "                <PmtId>\r\n"
                    "                    <EndToEndId>",
                    xmlInhalt(satz.AuftraggeberReferenz),
                    "</EndToEndId>\r\n"
                    "                </PmtId>\r\n"
                    "                <Amt>\r\n"
                    "                    <InstdAmt Ccy=\"EUR\">",
                    Betragstext(satz.EinzelBetrag),
                    "</InstdAmt>\r\n"
                    "                </Amt>\r\n"
                    "                <CdtrAgt>\r\n"
                    "                    <FinInstnId>\r\n"
                    "                        <BIC>",
                    xmlInhalt(satz.KundeBIC),
                    "</BIC>\r\n"
                    "                    </FinInstnId>\r\n"
                    "                </CdtrAgt>\r\n"
                    "                <Cdtr>\r\n"
                    "                    <Nm>",
                    xmlInhalt(SepaText(satz.KundeName)),
                    "</Nm>\r\n"
                    "                    <PstlAdr>\r\n"
                    "                        <AdrLine>",
                    xmlInhalt(SepaText(satz.KundeAdresse)),
                    "</AdrLine>\r\n"
                    "                    </PstlAdr>\r\n"
                    "                </Cdtr>\r\n"
                    "                <CdtrAcct>\r\n"
                    "                    <Id>\r\n"
                    "                        <IBAN>",
                    xmlInhalt(satz.KundeIBAN),
                    "</IBAN>\r\n"
                    "                    </Id>\r\n"
                    "                </CdtrAcct>\r\n"
                    "                <RmtInf>\r\n"
                    "                    <Ustrd>",
                    xmlInhalt(SepaText(satz.Verwendungszweck)),
                    "</Ustrd>\r\n"
                    "                </RmtInf>\r\n"
                    "            </CdtTrfTxInf>\r\n"});
}
// NOLINTEND(bugprone-suspicious-missing-comma)

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
  QByteArray datei;
  datei.reserve(kopflaenge + saetze * blocklaenge);
  nachrichtenkopf(datei, kopf, anzahl, summe);
  auftragskopf(datei, kopf, anzahl, summe);
  for (const Ueberweisung& satz : tabelle) {
    ueberweisungsblock(datei, satz);
  }
  datei +=
      "        </PmtInf>\r\n"
      "    </CstmrCdtTrfInitn>\r\n"
      "</Document>\r\n";
  return datei;
}

}  // namespace pelvanto
