#include "support/protokoll.h"

#include <array>

#include "support/pfade.h"
#include "support/windows1252.h"
#include "support/zahlenformat.h"

namespace pelvanto {

namespace {

constexpr int tageZurueck = 99;
constexpr QLatin1StringView zeilenende("\r\n");

QString uhrzeit(const QDateTime& jetzt) { return jetzt.toString(QStringLiteral("HH:mm:ss")); }

QString element(const QString& name, const QString& wert) {
  return QStringLiteral("    <%1>").arg(name) + wert + QStringLiteral("</%1>").arg(name);
}

// What of the file's size and times can be had.
QStringList dateiangaben(const Dateisystem& dateien, const QString& pfad) {
  QStringList angaben{element(QStringLiteral("Dateiname"), pfad)};
  if (const auto groesse = dateien.groesse(pfad)) {
    angaben << element(QStringLiteral("DateiGroesse"), protokollGroesse(*groesse));
  }
  if (const auto zeiten = dateien.zeiten(pfad)) {
    const auto text = [](const QDateTime& zeit) {
      return zeit.toString(QStringLiteral("dd.MM.yy HH:mm:ss"));
    };
    angaben << element(QStringLiteral("Erstellt"), text(zeiten->erstellt))
            << element(QStringLiteral("LetzterZugriff"), text(zeiten->letzterZugriff))
            << element(QStringLiteral("LetztesSchreiben"), text(zeiten->letztesSchreiben));
  }
  return angaben;
}

}  // namespace

QString tagesprotokoll(const QDate& tag) {
  return tag.toString(QStringLiteral("yy_MM_dd")) + QStringLiteral(".txt");
}

QString protokollGroesse(qint64 bytes) {
  return bytes == 0 ? QString() : Zahlenformat::ganzzahl(bytes, Zahlenzeichen());
}

QString fehlerbericht(const Dateifehler& fehler, const QString& prozedur, const QString& modul,
                      const QString& imOderIn) {
  return QStringLiteral("Fehler %1 (").arg(fehler.nummer) + fehler.beschreibung +
         QStringLiteral(") in Prozedur ") + prozedur + u' ' + imOderIn + QStringLiteral(" Modul ") + modul;
}

Protokoll::Protokoll(Dateisystem& dateien, const Uhr& uhr, QString programmOrdner)
    : dateien_(dateien), uhr_(uhr), ordner_(std::move(programmOrdner)) {}

QString Protokoll::fruehereProtokolle(const QDateTime& jetzt) {
  static const std::array<QString, 3> marken = {QStringLiteral("Gestern"), QStringLiteral("VorGestern"),
                                                QStringLiteral("VorVorGestern")};
  QString text;
  size_t gefunden = 0;
  for (int tage = 1; tage <= tageZurueck && gefunden < marken.size(); ++tage) {
    const QDate tag = jetzt.date().addDays(-tage);
    const QString pfad = pfadVerbinden(ordner_, tagesprotokoll(tag));
    if (!istDatei(pfad, dateien_)) {
      continue;
    }
    if (gefunden == 0 && tag.year() != jetzt.date().year()) {
      neuesJahr_ = true;
    } else if (gefunden == 0 && tag.month() != jetzt.date().month()) {
      neuerMonat_ = true;
    }
    const QString& marke = marken.at(gefunden++);
    QStringList zeilen{u'<' + marke + u'>'};
    zeilen << dateiangaben(dateien_, pfad) << QStringLiteral("</") + marke + u'>';
    for (const QString& zeile : zeilen) {
      text += QStringLiteral("K ") + uhrzeit(jetzt) + QStringLiteral("  ") + zeile + zeilenende;
    }
  }
  return text;
}

qint64 Protokoll::zeilenZaehlen(const QString& pfad) const {
  QByteArray inhalt;
  if (!istDatei(pfad, dateien_) || !dateien_.lesen(pfad, inhalt).ok()) {
    return 0;
  }
  return inhalt.count('\r');
}

void Protokoll::schreiben(const QString& text, int einzug, Zeile zeile) {
  const QDateTime jetzt = uhr_.jetzt();
  const QString heute = pfadVerbinden(ordner_, tagesprotokoll(jetzt.date()));
  const QString eingezogen = QStringLiteral("  ") + QString(einzug, u' ') + text + zeilenende;

  QString neu = istDatei(heute, dateien_) ? QString() : fruehereProtokolle(jetzt);
  neu += QStringLiteral("K ") + uhrzeit(jetzt) + eingezogen;
  dateien_.anhaengen(heute, nachWindows1252(neu));
  if (zeile == Zeile::Fehler) {
    const QString fehlerdatei = pfadVerbinden(ordner_, QStringLiteral("Fehlerprotokoll.txt"));
    const QString nummer = QString::number(zeilenZaehlen(fehlerdatei) + 1);
    const QString zeitpunkt = jetzt.toString(QStringLiteral("dd.MM.yy HH:mm:ss"));
    dateien_.anhaengen(fehlerdatei, nachWindows1252(nummer + QStringLiteral(";K ") + zeitpunkt + eingezogen));
  }
}

}  // namespace pelvanto
