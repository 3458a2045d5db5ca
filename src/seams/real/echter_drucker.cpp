#include "seams/real/echter_drucker.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QRegularExpression>

namespace pelvanto {
namespace {

Druckfehler druckerfehler(const QString& beschreibung) { return {kDruckerfehler, beschreibung}; }

QString schriftfamilie() {
  const QStringList vorhanden = QFontDatabase::families();
  return vorhanden.contains(QStringLiteral("Arial")) ? QStringLiteral("Arial")
                                                     : QStringLiteral("Liberation Sans");
}

// Draws unscaled, in the printer's own dots; the caller's lengths are millimetres.
class QtDokument : public Druckdokument {
 public:
  explicit QtDokument(std::unique_ptr<QPrinter> drucker) : drucker_(std::move(drucker)) {
    // In this order: margins of the queue would otherwise leave the page upright.
    drucker_->setFullPage(true);
    drucker_->setPageSize(QPageSize(QPageSize::A4));
    drucker_->setPageOrientation(QPageLayout::Landscape);
    if (!maler_.begin(drucker_.get())) {
      throw druckerfehler(QStringLiteral("Der Drucker nimmt keinen Auftrag an"));
    }
    maler_.setPen(QPen(Qt::black, punkte(kStrich)));
  }
  QtDokument(const QtDokument&) = delete;
  QtDokument& operator=(const QtDokument&) = delete;
  ~QtDokument() override {
    if (maler_.isActive()) drucker_->abort();
  }

  double textbreite(const QString& text, Druckschrift schrift) const override {
    return millimeter(masse(schrift).horizontalAdvance(text));
  }
  double texthoehe(Druckschrift schrift) const override { return millimeter(masse(schrift).height()); }
  void text(double x, double y, const QString& text, Druckschrift schrift) override {
    maler_.setFont(schriftart(schrift));
    maler_.drawText(QPointF(punkte(x), punkte(y) + masse(schrift).ascent()), text);
  }
  void linie(double x1, double y1, double x2, double y2) override {
    maler_.drawLine(QPointF(punkte(x1), punkte(y1)), QPointF(punkte(x2), punkte(y2)));
  }
  void neueSeite() override {
    if (!drucker_->newPage()) throw druckerfehler(QStringLiteral("Der Drucker nimmt keine weitere Seite an"));
  }
  void beenden() override {
    if (!maler_.end() || drucker_->printerState() == QPrinter::Error) {
      throw druckerfehler(QStringLiteral("Der Drucker hat das Dokument nicht angenommen"));
    }
  }

 private:
  static constexpr double kStrich = 0.1;  // mm
  static constexpr double kMillimeterJeZoll = 25.4;

  double punkte(double mm) const { return mm * drucker_->resolution() / kMillimeterJeZoll; }
  double millimeter(double punkte) const { return punkte * kMillimeterJeZoll / drucker_->resolution(); }
  static QFont schriftart(Druckschrift schrift) {
    static const QString familie = schriftfamilie();
    QFont font(familie, schrift.punkte);
    font.setItalic(schrift.kursiv);
    return font;
  }
  QFontMetricsF masse(Druckschrift schrift) const { return {schriftart(schrift), drucker_.get()}; }

  std::unique_ptr<QPrinter> drucker_;
  QPainter maler_;
};

}  // namespace

QString EchterDrucker::standarddrucker() const { return QPrinterInfo::defaultPrinter().printerName(); }

std::unique_ptr<Druckdokument> EchterDrucker::dokument(const QString& name) {
  const QPrinterInfo info = QPrinterInfo::defaultPrinter();
  if (info.isNull()) throw druckerfehler(QStringLiteral("Es ist kein Drucker eingerichtet"));
  auto drucker = std::make_unique<QPrinter>(info, QPrinter::HighResolution);
  drucker->setDocName(name);
  return std::make_unique<QtDokument>(std::move(drucker));
}

std::unique_ptr<Druckdokument> PDFDrucker::dokument(const QString& name) {
  static const QRegularExpression verboten(QStringLiteral("[\\\\/:*?\"<>|]"));
  auto drucker = std::make_unique<QPrinter>(QPrinter::HighResolution);
  drucker->setOutputFormat(QPrinter::PdfFormat);
  drucker->setOutputFileName(ordner_ + u'/' + QString(name).replace(verboten, QStringLiteral(" ")).trimmed() +
                             QStringLiteral(".pdf"));
  drucker->setDocName(name);
  return std::make_unique<QtDokument>(std::move(drucker));
}

}  // namespace pelvanto
