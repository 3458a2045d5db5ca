#pragma once

#include "seams/dateisystem.h"

namespace pelvanto {

// The computer's file system.
class EchtesDateisystem : public Dateisystem {
 public:
  bool existiert(const QString& pfad) const override;
  bool istOrdner(const QString& pfad) const override;
  Dateifehler oeffnenPruefen(const QString& pfad) const override;
  std::optional<Dateizeiten> zeiten(const QString& pfad) const override;
  std::optional<qint64> groesse(const QString& pfad) const override;
  QStringList namen(const QString& ordner) const override;
  Dateifehler lesen(const QString& pfad, QByteArray& inhalt) const override;
  Dateifehler anhaengen(const QString& pfad, const QByteArray& inhalt) override;
  Dateifehler schreiben(const QString& pfad, const QByteArray& inhalt) override;
  Dateifehler loeschen(const QString& pfad) override;
  Dateifehler attributeLoeschen(const QString& pfad) override;
  Dateifehler umbenennen(const QString& alt, const QString& neu) override;
  Dateifehler ersetzen(const QString& neu, const QString& ziel) override;
  Dateifehler kopieren(const QString& quelle, const QString& ziel) override;
  Dateifehler ordnerAnlegen(const QString& ordner) override;
  Dateifehler ordnerSpuelen(const QString& ordner) override;
};

}  // namespace pelvanto
