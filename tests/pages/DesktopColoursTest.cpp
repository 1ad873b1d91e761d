// SPDX-License-Identifier: MIT
#include "tests/pages/Dialogs.h"
#include "tests/support/TestSubject.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionComboBox>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr QColor DARK{45, 45, 45};
constexpr QColor LIGHT{239, 239, 239};
// What the accessibility guidelines ask of text of this size.
constexpr qreal READABLE = 4.5;

qreal luminance(const QColor& colour) {
    const auto linear = [](qreal part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

/// How far the lightest pixel is from the darkest one, from 1 to 21.
qreal contrast(const QImage& picture) {
    qreal least = 1;
    qreal greatest = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const qreal value = luminance(picture.pixelColor(x, y));
            least = std::min(least, value);
            greatest = std::max(greatest, value);
        }
    }
    return (greatest + 0.05) / (least + 0.05);
}

/// Where @p control writes its text, without marks and borders; null: it writes none.
QRect textPlace(QWidget& control) {
    const auto place = [&control](QStyle::SubElement element, auto option) {
        option.initFrom(&control);
        return control.style()->subElementRect(element, &option, &control);
    };
    if (const auto* label = qobject_cast<QLabel*>(&control)) {
        return label->text().trimmed().isEmpty() ? QRect() : label->contentsRect();
    }
    if (qobject_cast<QCheckBox*>(&control) != nullptr) {
        return place(QStyle::SE_CheckBoxContents, QStyleOptionButton());
    }
    if (qobject_cast<QRadioButton*>(&control) != nullptr) {
        return place(QStyle::SE_RadioButtonContents, QStyleOptionButton());
    }
    if (qobject_cast<QPushButton*>(&control) != nullptr) {
        return place(QStyle::SE_PushButtonContents, QStyleOptionButton());
    }
    if (const auto* edit = qobject_cast<QLineEdit*>(&control)) {
        return edit->text().isEmpty() ? QRect()
                                      : place(QStyle::SE_LineEditContents, QStyleOptionFrame());
    }
    if (qobject_cast<QComboBox*>(&control) != nullptr) {
        QStyleOptionComboBox option;
        option.initFrom(&control);
        return control.style()->subControlRect(QStyle::CC_ComboBox, &option,
                                               QStyle::SC_ComboBoxEditField, &control);
    }
    return {};
}

}  // namespace

/// The dialogs, which have the colours of the desktop, on a dark one and on a light one.
class DesktopColoursTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyTextCanBeRead_data();
    void everyTextCanBeRead();
};

void DesktopColoursTest::everyTextCanBeRead_data() {
    QTest::addColumn<int>("index");
    QTest::addColumn<QColor>("desktop");
    for (int i = 0; i < dialogs().size(); ++i) {
        QTest::addRow("%s, dark", dialogs()[i].name) << i << DARK;
        QTest::addRow("%s, light", dialogs()[i].name) << i << LIGHT;
    }
}

void DesktopColoursTest::everyTextCanBeRead() {
    QFETCH(int, index);
    QFETCH(QColor, desktop);
    QApplication::setPalette(QPalette(desktop));
    const std::unique_ptr<QDialog> dialog = openDialog(dialogs()[index]);
    const QImage picture = dialog->grab().toImage();
    const qreal ground = luminance(picture.pixelColor(2, 2));
    QVERIFY(desktop == DARK ? ground < 0.1 : ground > 0.5);

    int texts = 0;
    for (QWidget* const control : dialog->findChildren<QWidget*>()) {
        const QRect place = textPlace(*control);
        if (place.isEmpty() || !control->isVisible()) {
            continue;
        }
        ++texts;
        const qreal found = contrast(
            picture.copy(QRect(control->mapTo(dialog.get(), place.topLeft()), place.size())));
        QVERIFY2(found >= READABLE, qPrintable(u"%1 of %2"_s.arg(found).arg(nameOf(control))));
    }
    QVERIFY(texts >= dialogs()[index].buttons.size());
}

const TestSubject registered = subjectWithWidgets<DesktopColoursTest>();
#include "DesktopColoursTest.moc"
