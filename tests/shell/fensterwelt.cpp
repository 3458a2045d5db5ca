#include "shell/fensterwelt.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTest>
#include <QWindow>

#include <stdexcept>

#include "common/verbindo_datenbank.h"
#include "jet/file.h"
#include "support/pfade.h"
#include "support/windows1252.h"

namespace pelvanto::test {

Fensterwelt::Fensterwelt() = default;
Fensterwelt::~Fensterwelt() = default;

void Fensterwelt::schreiben(const QString& name, const QByteArray& inhalt) const {
  QFile datei(pfad(name));
  if (!datei.open(QIODevice::WriteOnly)) throw std::runtime_error("cannot write " + name.toStdString());
  datei.write(inhalt);
}

QByteArray Fensterwelt::lesen(const QString& name) const {
  QFile datei(pfad(name));
  if (!datei.open(QIODevice::ReadOnly)) throw std::runtime_error("cannot read " + name.toStdString());
  return datei.readAll();
}

QStringList Fensterwelt::namen() const { return QDir(ordner.path()).entryList(QDir::Files, QDir::Name); }

QString Fensterwelt::protokoll() const {
  QString alles;
  for (const QString& name : namen()) {
    if (name.endsWith(".txt")) alles += ausWindows1252(lesen(name));
  }
  return alles;
}

void Fensterwelt::vereinAnlegen(int personen) {
  VerbindoDatenbank datenbank;
  datenbank.gruppe(1, u"Lieferung").gruppe(2, u"Beitrag 2025").gruppe(3, u"Beitrag 2026").gruppe(4, u"Bio");
  for (int id = 1; id <= personen; ++id) {
    const std::u16string name = QStringLiteral("Person %1").arg(id, 5, 10, QChar(u'0')).toStdU16String();
    datenbank.person({.id = id,
                      .namen = name,
                      .adresse = u"4020 Linz, Am Damm 1",
                      .telefon = u"0732/1234",
                      .iban = u"AT611904300234573201",
                      .bic = u"MUSTAT2LXXX"});
    datenbank.mitglied(id, 1, 1000 * (1 + id % 7)).mitglied(id, 2).mitglied(id, 3);
  }
  datenbank.schreiben(std::filesystem::path(pfad("Verbindo.mdb").toStdU16String()));
}

void Fensterwelt::einstellungenAnlegen() const {
  schreiben(
      "verbindo.ini",
      "[Auszahlungen]\r\nUnterlieferungGruppe=Lieferung\r\nEinzahlungen=Beitrag\r\nGesamtBetrag=1000\r\n"
      "EigeneIBAN=AT61 1904 3002 3457 3201\r\nEigeneBIC=MUSTAT2LXXX\r\n");
}

void Fensterwelt::vereinMitAusfaellenAnlegen() {
  VerbindoDatenbank datenbank;
  datenbank.gruppe(1, u"Lieferung").gruppe(2, u"Beitrag 2025").gruppe(3, u"Beitrag 2026");
  datenbank.gruppe(4, u"Bio").gruppe(5, u"Kurs");
  for (int id = 1; id <= 7; ++id) {
    VerbindoDatenbank::Person person{
        .id = id, .namen = u"Hof" + std::u16string(1, char16_t(u'0' + id)), .adresse = u"4360 Größ 5"};
    if (id != 7) person.iban = u"AT611904300234573201";
    if (id != 7) person.bic = u"MUSTAT2LXXX";
    datenbank.person(person);
    datenbank.mitglied(id, 1, id == 6 ? std::nullopt : std::optional(1000));
    if (id != 3) datenbank.mitglied(id, 2).mitglied(id, 3);
    if (id != 4) datenbank.mitglied(id, 4);
    if (id != 5) datenbank.mitglied(id, 5);
  }
  datenbank.schreiben(std::filesystem::path(pfad("Verbindo.mdb").toStdU16String()));
  einstellungenAnlegen();
  schreiben("verbindo.ini", lesen("verbindo.ini") + "GruppeNotwendig=Bio\r\nGruppeNotwendig3b=Kurs\r\n");
}

bool Fensterwelt::starten() {
  umgebung = std::make_unique<Umgebung>(Aussenwelt{uhr, meldungen, oberflaeche, gebietsschema, dateisystem,
                                                   jet::systemFiles(), drucker, anwendungen},
                                        prozesswerteFuer(ordner.path(), dateisystem));
  fenster = std::make_unique<HauptFenster>(*umgebung);
  if (!fenster->starten()) return false;
  fenster->show();
  fenster->activateWindow();
  QApplication::processEvents();
  return true;
}

bool Fensterwelt::druecken(const QString& name) const {
  auto* knopf = finden<QAbstractButton>(name);
  if (!knopf->isVisible()) throw std::runtime_error("not to be seen: " + name.toStdString());
  if (!knopf->isEnabled()) return false;
  knopf->click();
  return true;
}

void Fensterwelt::rechtsklicken(const QString& name) const {
  const auto* steuerelement = finden<QWidget>(name);
  const QPoint mitte = steuerelement->mapTo(fenster.get(), steuerelement->rect().center());
  QTest::mouseClick(fenster->windowHandle(), Qt::RightButton, {}, mitte);
}

std::vector<QStringList> Fensterwelt::zeilen(const QString& name, int abZahl) const {
  const ListenAnsicht* ansicht = liste(name);
  const QAbstractItemModel* modell = ansicht->model();
  std::vector<QStringList> zeilen;
  for (int zeile = 0; zeile < modell->rowCount(); ++zeile) {
    QStringList felder;
    for (int spalte = 1; spalte < modell->columnCount(); ++spalte) {
      const QString text = modell->index(zeile, spalte).data().toString();
      felder << (spalte < abZahl ? text : schlicht(text));
    }
    zeilen.push_back(felder);
  }
  return zeilen;
}

void Fensterwelt::bisSeite(int seite) const {
  const QStringList schritte{"1", "2", "3", "3b", "4", "5"};
  for (int i = fenster->aktuelleSeite(); i <= seite; ++i) {
    if (!druecken("cmdErgebnisZeigen" + schritte[i]) || (i < seite && !druecken("cmdWeiter" + schritte[i])))
      throw std::runtime_error("the wizard stops at step " + schritte[i].toStdString());
  }
}

QString schlicht(QString text) {
  text.remove(u'.').remove(QStringLiteral(" €"));
  return text.replace(u',', u'.');
}

}  // namespace pelvanto::test
