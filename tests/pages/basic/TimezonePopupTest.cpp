// SPDX-License-Identifier: MIT
#include "pages/basic/ChoiceDialogs.h"
#include "tests/support/TestSubject.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QImage>
#include <QStyleFactory>
#include <QTest>
#include <QTranslator>

using namespace Qt::StringLiterals;

namespace {

bool isInked(const QImage& picture, int x) {
    for (int y = 0; y < picture.height(); ++y) {
        if (picture.pixel(x, y) != picture.pixel(0, 0)) {
            return true;
        }
    }
    return false;
}

/// The first and the last column of @p picture in which anything is drawn; {-1, -1} for none.
std::pair<int, int> inkedColumns(const QImage& picture) {
    std::pair<int, int> columns{-1, -1};
    for (int x = 0; x < picture.width(); ++x) {
        if (isInked(picture, x)) {
            columns = {columns.first < 0 ? x : columns.first, x};
        }
    }
    return columns;
}

}  // namespace

/// The list of time zones, opened. The box shows a zone on two lines, the list on one.
class TimezonePopupTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void eachZoneIsReadableToItsEnd_data();
    void eachZoneIsReadableToItsEnd();
};

void TimezonePopupTest::initTestCase() {
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    // The program's own text size.
    QFont font;
    font.setPixelSize(13);
    QApplication::setFont(font);
}

void TimezonePopupTest::eachZoneIsReadableToItsEnd_data() {
    QTest::addColumn<QString>("catalogue");
    QTest::newRow("English") << u":/lang/en"_s;
    QTest::newRow("Japanese") << u":/lang/ja"_s;
}

void TimezonePopupTest::eachZoneIsReadableToItsEnd() {
    QFETCH(const QString, catalogue);
    QTranslator translator;
    QVERIFY(translator.load(catalogue));
    QVERIFY(QCoreApplication::installTranslator(&translator));
    ClDialogTimezone dialog;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    auto* zones = dialog.findChild<QComboBox*>();
    zones->showPopup();

    QAbstractItemView* list = zones->view();
    for (int row = 0; row < zones->count(); ++row) {
        // Another one is highlighted.
        list->setCurrentIndex(zones->model()->index(row == 0 ? 1 : 0, 0));
        const QModelIndex item = zones->model()->index(row, 0);
        list->scrollTo(item);
        const QRect place = list->visualRect(item) & list->viewport()->rect();
        QVERIFY2(place.height() >= list->fontMetrics().lineSpacing(),
                 qPrintable(item.data().toString()));

        const auto [first, last] = inkedColumns(list->viewport()->grab(place).toImage());
        const QRect ink =
            list->fontMetrics().tightBoundingRect(item.data().toString().replace(u'\n', u' '));
        constexpr int ROUNDING = 2;  // pixels
        const QString said = u"\"%1\": %2 pixels, from %3 to %4 of %5"_s.arg(item.data().toString())
                                 .arg(ink.width())
                                 .arg(first)
                                 .arg(last)
                                 .arg(place.width());
        QVERIFY2(last - first + 1 >= ink.width() - ROUNDING, qPrintable(said));
        QVERIFY2(last < place.width() - 1, qPrintable(said));
    }
}

const TestSubject registered = subjectWithWidgets<TimezonePopupTest>();
#include "TimezonePopupTest.moc"
