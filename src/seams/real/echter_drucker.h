#pragma once

#include <QString>

#include "seams/drucker.h"

namespace pelvanto {

// The default printer of the system.
class EchterDrucker : public Drucker {
 public:
  QString standarddrucker() const override;
  std::unique_ptr<Druckdokument> dokument(const QString& name) override;
};

// Every document becomes a PDF file in a folder, named after the document, instead of going to a printer.
class PDFDrucker : public Drucker {
 public:
  explicit PDFDrucker(QString ordner) : ordner_(std::move(ordner)) {}
  QString standarddrucker() const override { return QStringLiteral("PDF"); }
  std::unique_ptr<Druckdokument> dokument(const QString& name) override;

 private:
  QString ordner_;
};

}  // namespace pelvanto
