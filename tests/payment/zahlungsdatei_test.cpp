#include "payment/zahlungsdatei.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <gtest/gtest.h>
#include <limits>

#include "common/ausgabe.h"
#include "payment/zahlungswelt.h"

namespace pelvanto::test {
namespace {

Zahlungsdatei kopf() {
  return {"UE26001", QDateTime(QDate(2026, 3, 6), QTime(8, 9, 10)), "Tolvana", "AT611904300234573201",
          "MUSTAT2LXXX"};
}

QByteArray bytesVon(const UeberweisungT& tabelle) {
  return ZahlungsdateiText(kopf(), tabelle, *Gesamtsumme(tabelle));
}

// The texts of all elements of this name, as an XML parser reads them.
QStringList werte(const QByteArray& bytes, const QString& name) {
  QStringList liste;
  QXmlStreamReader leser(bytes);
  while (!leser.atEnd()) {
    if (leser.readNext() == QXmlStreamReader::StartElement && leser.name() == name) {
      liste << leser.readElementText(QXmlStreamReader::IncludeChildElements);
    }
  }
  EXPECT_FALSE(leser.hasError()) << leser.errorString().toStdString();
  return liste;
}

TEST(ZahlungsdateiTest, OneTransferLineByLine) {
  const QByteArray erwartet =
      R"(<?xml version="1.0" encoding="UTF-8" ?>
<Document xmlns="ISO:pain.001.001.03"
xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance">
    <CstmrCdtTrfInitn>
        <GrpHdr>
            <MsgId>UE26001</MsgId>
            <CreDtTm>2026-03-06T08:09:10</CreDtTm>
            <NbOfTxs>1</NbOfTxs>
            <CtrlSum>0.05</CtrlSum>
            <InitgPty>
                <Nm>Tolvana</Nm>
            </InitgPty>
        </GrpHdr>
        <PmtInf>
            <PmtInfId>UE26001</PmtInfId>
            <PmtMtd>TRF</PmtMtd>
            <BtchBookg>false</BtchBookg>
            <NbOfTxs>1</NbOfTxs>
            <CtrlSum>0.05</CtrlSum>
            <PmtTpInf>
                <SvcLvl>
                    <Cd>SEPA</Cd>
                </SvcLvl>
                <LclInstrm>
                    <Cd>TRF</Cd>
                </LclInstrm>
            </PmtTpInf>
            <ReqdExctnDt>2026-03-06</ReqdExctnDt>
            <Dbtr>
                <Nm>Tolvana</Nm>
            </Dbtr>
            <DbtrAcct>
                <Id>
                    <IBAN>AT611904300234573201</IBAN>
                </Id>
            </DbtrAcct>
            <DbtrAgt>
                <FinInstnId>
                    <BIC>MUSTAT2LXXX</BIC>
                </FinInstnId>
            </DbtrAgt>
            <ChrgBr>SLEV</ChrgBr>
            <CdtTrfTxInf>
                <PmtId>
                    <EndToEndId>MitgliedID17</EndToEndId>
                </PmtId>
                <Amt>
                    <InstdAmt Ccy="EUR">0.05</InstdAmt>
                </Amt>
                <CdtrAgt>
                    <FinInstnId>
                        <BIC>bkauatww </BIC>
                    </FinInstnId>
                </CdtrAgt>
                <Cdtr>
                    <Nm>Mueller Soehne</Nm>
                    <PstlAdr>
                        <AdrLine></AdrLine>
                    </PstlAdr>
                </Cdtr>
                <CdtrAcct>
                    <Id>
                        <IBAN>BE68 5390 0754 7034</IBAN>
                    </Id>
                </CdtrAcct>
                <RmtInf>
                    <Ustrd>Bonus (2026) Milch</Ustrd>
                </RmtInf>
            </CdtTrfTxInf>
        </PmtInf>
    </CstmrCdtTrfInitn>
</Document>
)";
  Ueberweisung satz = ueberweisung(5, "Müller & Söhne");
  satz.KundeBIC = "bkauatww ";
  satz.KundeAdresse = "";
  satz.KundeIBAN = "BE68 5390 0754 7034";
  satz.Verwendungszweck = "Bonus\r\n<2026>\u000B Milch";
  EXPECT_EQ(QString::fromLatin1(bytesVon({satz})), QString::fromLatin1(erwartet).replace("\n", "\r\n"));
}

TEST(ZahlungsdateiTest, SeveralTransfersKeepTheirOrderAndSum) {
  Ueberweisung fremd = ueberweisung(-100, "&'\"");
  fremd.KundeBIC = "A<B&C";
  fremd.KundeName = "&'\"";
  fremd.AuftraggeberReferenz = "Mitglied\"ID'1";
  const QByteArray bytes = bytesVon({ueberweisung(123450, QString(70, u'ä')), ueberweisung(0), fremd});
  EXPECT_EQ(werte(bytes, "BtchBookg"), QStringList("true"));
  EXPECT_EQ(werte(bytes, "NbOfTxs"), QStringList({"3", "3"}));
  EXPECT_EQ(werte(bytes, "CtrlSum"), QStringList({"1233.50", "1233.50"}));
  EXPECT_EQ(werte(bytes, "InstdAmt"), QStringList({"1234.50", "0.00", "-1.00"}));
  EXPECT_EQ(werte(bytes, "Cdtr").size(), 3);
  EXPECT_EQ(werte(bytes, "BIC").last(), "A<B&C");
  EXPECT_EQ(werte(bytes, "EndToEndId").last(), "Mitglied\"ID'1");
  const QStringList namen = werte(bytes, "Nm");
  EXPECT_EQ(namen.at(2).size(), 140);
  EXPECT_EQ(namen.at(4), "");
  EXPECT_EQ(bytes.count('\n'), bytes.count("\r\n"));
}

TEST(ZahlungsdateiTest, OnlyTheDebtorNameIsCut) {
  Zahlungsdatei lang = kopf();
  lang.absender = QString(69, u'a') + "üb";
  const QByteArray bytes = ZahlungsdateiText(lang, {ueberweisung(1)}, Waehrung::ausCent(1));
  EXPECT_EQ(werte(bytes, "Nm").mid(0, 2), QStringList({QString(69, u'a') + "ueb", QString(69, u'a') + "u"}));
}

TEST(ZahlungsdateiTest, AmountsAreWrittenWithoutTheLocale) {
  const std::pair<qint64, const char*> faelle[] = {
      {0, "0.00"},
      {500, "0.05"},
      {12345000, "1234.50"},
      {-500, "-0.05"},
      {49, "0.00"},
      {50, "0.01"},
      {-50, "-0.01"},
      {99999999999900, "9999999999.99"},
      {std::numeric_limits<qint64>::max(), "922337203685477.58"},
      {std::numeric_limits<qint64>::min(), "-922337203685477.58"}};
  for (const auto& [wert, text] : faelle) {
    EXPECT_EQ(Betragstext(Waehrung::ausZehntausendsteln(wert)), QByteArray(text)) << wert;
  }
}

TEST(ZahlungsdateiTest, TheCheckFindsEveryChangedNumber) {
  const UeberweisungT tabelle = {ueberweisung(123450), ueberweisung(-5), ueberweisung(100)};
  const QByteArray gut = bytesVon(tabelle);
  ASSERT_EQ(ZahlungsdateiPruefen(gut, tabelle), QString());
  struct Fall {
    const char *alt, *neu, *befund;
  };
  const Fall faelle[] = {
      {"<InstdAmt Ccy=\"EUR\">1234.50<", "<InstdAmt Ccy=\"EUR\">1234.51<",
       "Der Betrag der 1. Überweisung stimmt nicht"},
      {"<InstdAmt Ccy=\"EUR\">-0.05<", "<InstdAmt Ccy=\"EUR\">0.05<",
       "Der Betrag der 2. Überweisung stimmt nicht"},
      {"<InstdAmt Ccy=\"EUR\">1.00<", "<InstdAmt Ccy=\"EUR\">1,00<",
       "Die Datei enthält eine unlesbare Zeile"},
      {"<InstdAmt Ccy=\"EUR\">1.00<", "<InstdAmt Ccy=\"USD\">1.00<",
       "Die Anzahl der Überweisungen stimmt nicht"},
      {"<CtrlSum>1235.45<", "<CtrlSum>1235.46<", "Die Summe stimmt nicht"},
      {"<NbOfTxs>3<", "<NbOfTxs>2<", "Die Anzahl der Überweisungen stimmt nicht"},
      {"<CdtTrfTxInf>", "<CdtTrfTxInf >", "Die Anzahl der Überweisungen stimmt nicht"},
      {"Maier", "M\xE4ier", "Die Datei enthält unerlaubte Zeichen"},
      {"</Document>\r\n", "</Document>", "Die Datei enthält eine unlesbare Zeile"},
  };
  for (const Fall& fall : faelle) {
    for (const qsizetype stelle : {gut.indexOf(fall.alt), gut.lastIndexOf(fall.alt)}) {
      ASSERT_GE(stelle, 0) << fall.alt;
      QByteArray schlecht = gut;
      schlecht.replace(stelle, static_cast<qsizetype>(qstrlen(fall.alt)), fall.neu);
      EXPECT_EQ(ZahlungsdateiPruefen(schlecht, tabelle), QString(fall.befund)) << fall.neu;
    }
  }
  EXPECT_NE(ZahlungsdateiPruefen(gut, {tabelle[0], tabelle[1]}), QString());
  EXPECT_NE(ZahlungsdateiPruefen(gut, {tabelle[0], tabelle[2], tabelle[1]}), QString());
}

// The official schema and the Austrian banks' subset of it, where they and the tool are at hand.
TEST(ZahlungsdateiTest, TheFileIsValidByTheSchemas) {
  const QDir schemas(PELVANTO_SOURCE_DIR "/../shared/xsd");
  const QString pruefer = QStandardPaths::findExecutable("xmllint");
  if (!schemas.exists() || pruefer.isEmpty()) {
    GTEST_SKIP() << "no schemas or no xmllint";
  }
  QTemporaryDir ordner;
  QFile datei(ordner.filePath("kopie.xml"));
  ASSERT_TRUE(datei.open(QIODevice::WriteOnly));
  datei.write(bytesVon({ueberweisung(123450, "Müller & <Söhne>"), ueberweisung(1, "Иван Čapek…"),
                        ueberweisung(99999999999, "Aimée O’Neil")})
                  .replace("ISO:pain.001.001.03", "urn:iso:std:iso:20022:tech:xsd:pain.001.001.03"));
  datei.close();
  for (const char* schema :
       {"pain.001.001.03.xsd", "austrian/ISO.pain.001.001.03.austrian.004.Korrigendum.xsd"}) {
    QProcess lauf;
    lauf.start(pruefer, {"--noout", "--nonet", "--schema", schemas.filePath(schema), datei.fileName()});
    ASSERT_TRUE(lauf.waitForFinished());
    EXPECT_EQ(lauf.exitCode(), 0) << schema << "\n" << lauf.readAllStandardError().toStdString();
  }
}

}  // namespace
}  // namespace pelvanto::test
