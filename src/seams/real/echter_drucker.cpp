#include "seams/real/echter_drucker.h"

#include <QDir>
#include <QFile>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QRegularExpression>
#include <QStorageInfo>

#include <cmath>
#include <variant>
#include <vector>

#include "seams/real/cups_fehler.h"

namespace pelvanto {
namespace {

Druckfehler druckerfehler(const QString& beschreibung) { return {kDruckerfehler, beschreibung}; }

QString schriftfamilie() {
  const QStringList vorhanden = QFontDatabase::families();
  return vorhanden.contains(QStringLiteral("Arial")) ? QStringLiteral("Arial")
                                                     : QStringLiteral("Liberation Sans");
}

// Keeps what is drawn until the document is ended, because Qt cannot take back a document that it has begun
// for a CUPS queue or a PDF file: the destructor of its painter would send what there is. Draws unscaled, in
// the printer's own dots; the caller's lengths are millimetres.
class QtDokument : public Druckdokument {
 public:
  explicit QtDokument(std::unique_ptr<QPrinter> drucker)
      : drucker_(std::move(drucker)), familie_(schriftfamilie()) {
    // In this order: margins of the queue would otherwise leave the page upright.
    drucker_->setFullPage(true);
    drucker_->setPageSize(QPageSize(QPageSize::A4));
    drucker_->setPageOrientation(QPageLayout::Landscape);
    const QSizeF blatt = drucker_->pageLayout().fullRect(QPageLayout::Millimeter).size();
    if (std::abs(blatt.width() - kBreite) > 1 || std::abs(blatt.height() - kHoehe) > 1) {
      throw druckerfehler(QStringLiteral("Der Drucker kann nicht quer auf A4 drucken"));
    }
  }

  double textbreite(const QString& text, Druckschrift schrift) const override {
    return millimeter(masse(schrift).horizontalAdvance(text));
  }
  double texthoehe(Druckschrift schrift) const override { return millimeter(masse(schrift).height()); }
  void text(double x, double y, const QString& text, Druckschrift schrift) override {
    const QPointF grundlinie(punkte(x), punkte(y) + masse(schrift).ascent());
    seiten_.back().emplace_back(Text{grundlinie, text, schriftart(schrift)});
  }
  void linie(double x1, double y1, double x2, double y2) override {
    seiten_.back().emplace_back(QLineF(punkte(x1), punkte(y1), punkte(x2), punkte(y2)));
  }
  void neueSeite() override { seiten_.emplace_back(); }
  void beenden() override {
    platzPruefen();
    QPainter maler;
    if (!maler.begin(drucker_.get())) {
      throw druckerfehler(QStringLiteral("Der Drucker nimmt keinen Auftrag an"));
    }
    maler.setPen(QPen(Qt::black, punkte(kStrich)));
    for (auto seite = seiten_.begin(); seite != seiten_.end(); ++seite) {
      if (seite != seiten_.begin() && !drucker_->newPage()) {
        drucker_->abort();
        throw druckerfehler(QStringLiteral("Der Drucker nimmt keine weitere Seite an"));
      }
      malen(maler, *seite);
    }
    if (!maler.end() || drucker_->printerState() == QPrinter::Error) {
      throw druckerfehler(QStringLiteral("Der Drucker hat das Dokument nicht angenommen"));
    }
    uebergabePruefen();
  }

 private:
  struct Text {
    QPointF grundlinie;
    QString text;
    QFont schrift;
  };
  using Zeichnung = std::variant<Text, QLineF>;
  static constexpr double kBreite = 297, kHoehe = 210, kStrich = 0.1;  // mm
  static constexpr double kMillimeterJeZoll = 25.4;

  static void malen(QPainter& maler, const std::vector<Zeichnung>& seite) {
    for (const Zeichnung& zeichnung : seite) {
      if (const auto* text = std::get_if<Text>(&zeichnung)) {
        maler.setFont(text->schrift);
        maler.drawText(text->grundlinie, text->text);
      } else {
        maler.drawLine(std::get<QLineF>(zeichnung));
      }
    }
  }
  // For a queue Qt builds the document in the temporary folder, and does not look whether it had room there.
  void platzPruefen() const {
    constexpr qint64 kJeSeite = 1 << 20, kGrundbedarf = 16 << 20;  // bytes, generously
    const QStorageInfo platte(QDir::tempPath());
    if (drucker_->outputFormat() != QPrinter::NativeFormat || !platte.isValid()) return;
    if (platte.bytesAvailable() >= kGrundbedarf + kJeSeite * static_cast<qint64>(seiten_.size())) return;
    throw druckerfehler(QStringLiteral("Auf dem Datenträger mit dem Ordner %1 ist zu wenig Platz")
                            .arg(QDir::toNativeSeparators(QDir::tempPath())));
  }
  // Qt itself does not look whether the queue has taken the document or the file is whole.
  void uebergabePruefen() const {
    if (drucker_->outputFormat() == QPrinter::NativeFormat) {
      const QString fehler = letzterCUPSFehler();
      if (!fehler.isEmpty()) {
        throw druckerfehler(QStringLiteral("Die Druckerwarteschlange hat das Dokument abgelehnt: ") + fehler);
      }
    } else if (QFile datei(drucker_->outputFileName());
               !datei.open(QIODevice::ReadOnly) || !datei.readAll().endsWith("%%EOF\n")) {
      datei.remove();
      throw druckerfehler(QStringLiteral("Die Datei ") + drucker_->outputFileName() +
                          QStringLiteral(" konnte nicht vollständig geschrieben werden"));
    }
  }

  double punkte(double mm) const { return mm * drucker_->resolution() / kMillimeterJeZoll; }
  double millimeter(double punkte) const { return punkte * kMillimeterJeZoll / drucker_->resolution(); }
  QFont schriftart(Druckschrift schrift) const {
    QFont font(familie_, schrift.punkte);
    font.setStyleHint(QFont::SansSerif);
    font.setItalic(schrift.kursiv);
    return font;
  }
  QFontMetricsF masse(Druckschrift schrift) const { return {schriftart(schrift), drucker_.get()}; }

  std::unique_ptr<QPrinter> drucker_;
  QString familie_;
  std::vector<std::vector<Zeichnung>> seiten_{1};
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
