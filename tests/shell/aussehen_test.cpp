// Every page, filled, on light and dark desktops, at 100 % and 200 %.
#include <QAbstractButton>
#include <QApplication>
#include <QGroupBox>
#include <QHeaderView>
#include <QImage>
#include <QProcess>
#include <QStyle>
#include <QTest>

#include <gtest/gtest.h>

#include "demo/dunkle_palette.h"
#include "shell/farben.h"
#include "shell/fensterwelt.h"
#include "shell/zaehler.h"

namespace pelvanto::test {
namespace {

struct Ansicht {
  bool dunkel;
  int prozent;
};

QRgb haeufigste(const QImage& bild) {
  QHash<QRgb, int> anzahl;
  for (int y = 0; y < bild.height(); ++y) {
    for (int x = 0; x < bild.width(); ++x) ++anzahl[bild.pixel(x, y)];
  }
  return std::max_element(anzahl.keyValueBegin(), anzahl.keyValueEnd(),
                          [](const auto& a, const auto& b) { return a.second < b.second; })
      ->first;
}

// The ground of a picture is its most frequent colour; the text on it is what differs most.
double gemessenerKontrast(const QImage& bild) {
  const QColor grund(haeufigste(bild));
  double bester = 1;
  for (int y = 0; y < bild.height(); ++y) {
    for (int x = 0; x < bild.width(); ++x)
      bester = std::max(bester, kontrast(grund, QColor(bild.pixel(x, y))));
  }
  return bester;
}

class AussehenTest : public testing::TestWithParam<Ansicht> {
 protected:
  AussehenTest() : palette_(QApplication::palette()) {
    if (GetParam().dunkel) QApplication::setPalette(vorfuehrung::dunklePalette());
    welt.vereinAnlegen(120);
    welt.einstellungenAnlegen();
  }
  ~AussehenTest() override {
    welt.fenster.reset();
    QApplication::setPalette(palette_);
  }

  QImage aufnahme(QWidget* steuerelement) const {
    const double faktor = GetParam().prozent / 100.0;
    QImage bild(steuerelement->size() * faktor, QImage::Format_RGB32);
    bild.setDevicePixelRatio(faktor);
    bild.fill(welt.fenster->palette().color(QPalette::Window));
    steuerelement->render(&bild);
    return bild;
  }

  void textePassen() {
    for (const QLabel* label : welt.fenster->findChildren<QLabel*>()) {
      if (!label->isVisible()) continue;
      const QRect innen = label->contentsRect();
      const int umbruch = label->wordWrap() ? Qt::TextWordWrap : Qt::TextSingleLine;
      const QSize noetig =
          label->fontMetrics().boundingRect(innen, umbruch | Qt::TextShowMnemonic, label->text()).size();
      EXPECT_LE(noetig.width(), innen.width()) << label->objectName().toStdString();
      EXPECT_LE(noetig.height(), innen.height()) << label->objectName().toStdString();
    }
    for (const QLineEdit* feld : welt.fenster->findChildren<QLineEdit*>()) {
      if (!feld->isVisible()) continue;
      EXPECT_LE(feld->fontMetrics().height() + 4, feld->height());
    }
    for (const QGroupBox* rahmen : welt.fenster->findChildren<QGroupBox*>()) {
      if (!rahmen->isVisible()) continue;
      EXPECT_LE(rahmen->fontMetrics().size(Qt::TextShowMnemonic, rahmen->title()).width() + 16,
                rahmen->width());
    }
    for (const ListenAnsicht* ansicht : welt.fenster->findChildren<ListenAnsicht*>()) {
      if (!ansicht->isVisible()) continue;
      for (int spalte = 1; spalte < ansicht->header()->count(); ++spalte) {
        const QString kopf = ansicht->model()->headerData(spalte, Qt::Horizontal).toString();
        EXPECT_LE(ansicht->header()->fontMetrics().horizontalAdvance(kopf) + 4,
                  ansicht->header()->sectionSize(spalte))
            << ansicht->objectName().toStdString() << " " << kopf.toStdString();
      }
    }
  }
  // No two controls of a page overlap, and none stands beyond its page.
  void nichtsUeberlappt() {
    QList<QWidget*> sichtbare;
    for (QWidget* kind : welt.fenster->findChildren<QWidget*>()) {
      const bool steuerelement = qobject_cast<QGroupBox*>(kind->parentWidget()) != nullptr;
      if (steuerelement && kind->isVisible()) sichtbare << kind;
    }
    EXPECT_GT(sichtbare.size(), 6);
    for (const QWidget* eines : sichtbare) {
      EXPECT_TRUE(eines->parentWidget()->rect().contains(eines->geometry()))
          << eines->objectName().toStdString();
      for (const QWidget* anderes : sichtbare) {
        if (eines == anderes || eines->parentWidget() != anderes->parentWidget()) continue;
        EXPECT_FALSE(eines->geometry().intersects(anderes->geometry()))
            << eines->objectName().toStdString() << " and " << anderes->objectName().toStdString();
      }
    }
  }
  void allesHatNamen() {
    for (const QWidget* kind : welt.fenster->findChildren<QWidget*>()) {
      if (!kind->isVisible() || !(kind->focusPolicy() & Qt::TabFocus)) continue;
      EXPECT_FALSE(kind->accessibleName().isEmpty()) << kind->objectName().toStdString();
      EXPECT_FALSE(kind->objectName().isEmpty());
      if (const auto* knopf = qobject_cast<const QAbstractButton*>(kind)) {
        EXPECT_EQ(knopf->accessibleName(), knopf->toolTip());
      }
    }
    for (const auto* zaehler : welt.fenster->findChildren<QLabel*>())
      EXPECT_TRUE(zaehler->accessibleName().isEmpty()) << "a name would hide the text";
  }
  // In both states the picture differs from the button's ground, and is there in the size that is asked for.
  void bilderSindZuSehen() {
    for (QAbstractButton* knopf : welt.fenster->findChildren<QAbstractButton*>()) {
      if (!knopf->isVisible() || knopf->icon().isNull()) continue;
      const bool ein = knopf->isEnabled();
      for (const bool zustand : {true, false}) {
        knopf->setEnabled(zustand);
        const QImage bild = aufnahme(knopf);
        const QPoint mitte = bild.rect().center();
        const int kante = knopf->iconSize().width() * GetParam().prozent / 100;
        const QImage innen = bild.copy(mitte.x() - kante / 2, mitte.y() - kante / 2, kante, kante);
        const int rand = 5 * GetParam().prozent / 100;
        const QColor grund(bild.pixel(rand, rand));
        int deutlich = 0;
        for (int y = 0; y < innen.height(); ++y) {
          for (int x = 0; x < innen.width(); ++x)
            deutlich += kontrast(grund, QColor(innen.pixel(x, y))) >= 2.2;
        }
        EXPECT_GT(deutlich, kante * kante / 16)
            << knopf->objectName().toStdString() << (zustand ? " enabled" : " disabled");
        const QIcon::Mode art = zustand ? QIcon::Normal : QIcon::Disabled;
        const double schirm = qApp->devicePixelRatio();
        EXPECT_EQ(knopf->icon().pixmap(knopf->iconSize(), schirm, art).width(),
                  knopf->iconSize().width() * schirm);
      }
      knopf->setEnabled(ein);
    }
  }
  void kontrasteReichen() {
    for (QWidget* kind : welt.fenster->findChildren<QWidget*>()) {
      if (!kind->isVisible()) continue;
      const auto* label = qobject_cast<QLabel*>(kind);
      const auto* feld = qobject_cast<QLineEdit*>(kind);
      const auto* ansicht = qobject_cast<ListenAnsicht*>(kind);
      const bool mitText = (label && !label->text().isEmpty()) || (feld && !feld->text().isEmpty()) ||
                           (ansicht && ansicht->model()->rowCount() > 0);
      if (!mitText) continue;
      EXPECT_GE(gemessenerKontrast(aufnahme(kind)), 4.5) << kind->objectName().toStdString();
    }
    for (const QWidget* kind :
         {static_cast<QWidget*>(welt.fenster.get()), static_cast<QWidget*>(welt.liste("lvwListe1"))}) {
      const QPalette& farben = kind->palette();
      EXPECT_GE(kontrast(farben.color(QPalette::WindowText), farben.color(QPalette::Window)), 4.5);
      EXPECT_GE(kontrast(farben.color(QPalette::Text), farben.color(QPalette::Base)), 4.5);
      EXPECT_GE(kontrast(farben.color(QPalette::HighlightedText), farben.color(QPalette::Highlight)), 4.5);
    }
  }

  void allesPruefen() {
    QApplication::processEvents();
    textePassen();
    nichtsUeberlappt();
    allesHatNamen();
    bilderSindZuSehen();
    kontrasteReichen();
  }

  Fensterwelt welt;

 private:
  QPalette palette_;
};

TEST_P(AussehenTest, EveryPageReadsWell) {
  ASSERT_TRUE(welt.starten());
  const QStringList schritte{"1", "2", "3", "3b", "4", "5"};
  for (int seite = 0; seite < 6; ++seite) {
    SCOPED_TRACE("page " + schritte[seite].toStdString());
    ASSERT_TRUE(welt.druecken("cmdErgebnisZeigen" + schritte[seite]));
    if (seite < 4) {  // a deleted row brings the pink counter out
      ListenAnsicht* ansicht = welt.liste("lvwListe" + schritte[seite]);
      ansicht->setCurrentIndex(ansicht->model()->index(2, 1));
      emit ansicht->loeschenGewuenscht();
      EXPECT_EQ(welt.text("lblErgebnis" + schritte[seite] + "Geloescht"), QString("1"));
    }
    allesPruefen();
    if (seite < 5) {
      ASSERT_TRUE(welt.druecken("cmdWeiter" + schritte[seite]));
    }
  }
}

TEST_P(AussehenTest, TheBoxAboutTheProgramReadsWell) {
  ASSERT_TRUE(welt.starten());
  QTest::keyClick(welt.fenster.get(), Qt::Key_F1, Qt::ControlModifier);
  EXPECT_TRUE(welt.finden<QLabel>("lblLizenzen")->isVisible());
  allesPruefen();
}

INSTANTIATE_TEST_SUITE_P(Desktops, AussehenTest,
                         testing::Values(Ansicht{false, 100}, Ansicht{false, 200}, Ansicht{true, 100},
                                         Ansicht{true, 200}),
                         [](const auto& fall) {
                           return std::string(fall.param.dunkel ? "Dunkel" : "Hell") +
                                  std::to_string(fall.param.prozent);
                         });

// The scaling that the system asks for needs a process of its own.
TEST(Skalierung, PagesReadWellUnderTheSystemsOwnScaling) {
  if (qEnvironmentVariableIsSet("QT_SCALE_FACTOR")) GTEST_SKIP() << "is the scaled process itself";
  QProcess prozess;
  QProcessEnvironment umgebung = QProcessEnvironment::systemEnvironment();
  umgebung.insert("QT_SCALE_FACTOR", "2");
  prozess.setProcessEnvironment(umgebung);
  prozess.start(QApplication::applicationFilePath(), {"--gtest_filter=*AussehenTest*100"});
  ASSERT_TRUE(prozess.waitForFinished(120000));
  EXPECT_EQ(prozess.exitCode(), 0) << prozess.readAllStandardOutput().toStdString();
}

// The window may be made larger: the lists gain the room, and everything else keeps its size.
TEST(Groesse, ListsShareTheRoomOfALargerWindow) {
  Fensterwelt welt;
  welt.vereinAnlegen(3);
  welt.einstellungenAnlegen();
  ASSERT_TRUE(welt.starten());
  EXPECT_EQ(welt.fenster->windowTitle(), QString("Projekt Milvarte Auszahlungen"));
  EXPECT_EQ(welt.fenster->size(), QSize(629, 425));
  EXPECT_EQ(welt.fenster->minimumSize(), QSize(629, 425));
  EXPECT_EQ(welt.liste("lvwListe1")->geometry(), QRect(8, 80, 605, 329));
  welt.bisSeite(1);
  const QRect oben = welt.liste("lvwListe2")->geometry();
  const QRect unten = welt.liste("lvwListeAusgeschieden2")->geometry();
  const QRect weiter = welt.finden<QAbstractButton>("cmdWeiter2")->geometry();
  EXPECT_EQ(oben, QRect(8, 80, 605, 149));
  EXPECT_EQ(unten, QRect(8, 260, 605, 149));

  welt.fenster->resize(829, 625);
  QApplication::processEvents();
  EXPECT_EQ(welt.liste("lvwListe2")->geometry(), oben.adjusted(0, 0, 200, 100));
  EXPECT_EQ(welt.liste("lvwListeAusgeschieden2")->geometry(), unten.adjusted(0, 100, 200, 200));
  EXPECT_EQ(welt.finden<QAbstractButton>("cmdWeiter2")->geometry(), weiter.translated(200, 0));
  // The next run computes the widths of columns from the list as it is.
  const int vorher = welt.liste("lvwListe2")->columnWidth(1);
  welt.druecken("cmdErgebnisZeigen2");
  EXPECT_NEAR(welt.liste("lvwListe2")->columnWidth(1), vorher + 50, 1);
  // Widths that the user has set go into the model, and stay while rows change.
  welt.liste("lvwListe2")->setColumnWidth(1, 77);
  EXPECT_EQ(welt.fenster->seiten().seite2.lvwListe2.spalten()[1].breite, 77 * 15);
  emit welt.liste("lvwListe2")->spalteAngeklickt(2);
  EXPECT_EQ(welt.liste("lvwListe2")->columnWidth(1), 77);
  EXPECT_TRUE(welt.liste("lvwListe2")->isColumnHidden(0));
}

}  // namespace
}  // namespace pelvanto::test
