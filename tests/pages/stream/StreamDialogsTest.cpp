// SPDX-License-Identifier: MIT
#include "pages/stream/StreamDialogs.h"
#include "tests/support/DialogControls.h"
#include "tests/support/TestSubject.h"
#include "tests/ui/TaggingTranslator.h"

#include <QAbstractButton>
#include <QDialogButtonBox>
#include <QLabel>
#include <QRadioButton>
#include <QTest>
#include <QTranslator>

using namespace Qt::StringLiterals;

namespace {

const QStringList REC_TEXTS{
    u"Set the image quality at the time of Rec"_s,
    u"Full HD(1920x1080)"_s,
    u"HD(1280x720)"_s,
    u"Economy(640x480)"_s,
};

const QStringList STREAM_TEXTS{
    u"Set the image quality at the time of LiveView"_s,
    u"Fine(800x480)"_s,
    u"Standard(320x240)"_s,
    u"Set the fps at the time of LiveView"_s,
    u"30 sheets(30fps)"_s,
    u"15 sheets(15fps)"_s,
    u"10 sheets(10fps)"_s,
    u"6 sheets(6fps)"_s,
    u"1 sheets(1fps)"_s,
};

int topOf(const QWidget& widget, const QWidget& dialog) {
    return widget.mapTo(&dialog, QPoint()).y();
}

/// The texts of labels and radio buttons from top to bottom, without those of the last row.
QStringList textsFromTop(const QWidget& dialog) {
    QMap<int, QString> texts;
    for (const QLabel* label : dialog.findChildren<QLabel*>()) {
        texts.insert(topOf(*label, dialog), label->text());
    }
    for (const QRadioButton* button : dialog.findChildren<QRadioButton*>()) {
        texts.insert(topOf(*button, dialog), button->text());
    }
    return texts.values();
}

}  // namespace

/// The two dialogs of the stream setting page alone.
class StreamDialogsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aDialogOffersItsChoices();
    void theTextsAreThePages();
    void theButtonsAreTheLastRow();
    void recordingValuesAreShown_data();
    void recordingValuesAreShown();
    void liveValuesAreShown_data();
    void liveValuesAreShown();
    void aClickedChoiceIsReturned();
    void sizeAndRateAreChosenApart();
    void theKeyboardMovesWithinAGroup();
    void everyTextIsWhollySeen_data();
    void everyTextIsWhollySeen();
};

void StreamDialogsTest::aDialogOffersItsChoices() {
    ClDialogRecSetting rec(nullptr);
    rec.show();
    QCOMPARE(textsFromTop(rec), REC_TEXTS);
    ClDialogStreamSetting stream(nullptr);
    stream.show();
    QCOMPARE(textsFromTop(stream), STREAM_TEXTS);
}

void StreamDialogsTest::theTextsAreThePages() {
    const TaggingTranslator translator;
    ClDialogStreamSetting stream(nullptr);
    stream.show();
    for (const QString& text : textsFromTop(stream)) {
        QVERIFY2(text.startsWith(u"ClWidgetStreamSetting|"_s), qPrintable(text));
    }
    ClDialogRecSetting rec(nullptr);
    rec.show();
    for (const QString& text : textsFromTop(rec)) {
        QVERIFY2(text.startsWith(u"ClWidgetStreamSetting|"_s), qPrintable(text));
    }
}

void StreamDialogsTest::theButtonsAreTheLastRow() {
    ClDialogStreamSetting dialog(nullptr);
    dialog.show();
    const auto* buttons = dialog.findChild<QDialogButtonBox*>();
    QCOMPARE(buttons->buttons().size(), 2);
    for (const QRadioButton* radio : dialog.findChildren<QRadioButton*>()) {
        QVERIFY(topOf(*radio, dialog) + radio->height() <= buttons->y());
    }
}

void StreamDialogsTest::recordingValuesAreShown_data() {
    QTest::addColumn<QVariantList>("values");
    QTest::addColumn<QString>("checked");
    QTest::addColumn<QSize>("size");
    const auto row = [](const char* name, const QVariantList& values, const QString& checked,
                        QSize size) { QTest::newRow(name) << values << checked << size; };
    const QString fullHd = u"Full HD(1920x1080)"_s;
    row("Full HD", {QSize(1920, 1080), 30U}, fullHd, {1920, 1080});
    row("HD", {QSize(1280, 720), 30U}, u"HD(1280x720)"_s, {1280, 720});
    row("economy", {QSize(640, 480), 30U}, u"Economy(640x480)"_s, {640, 480});
    row("size alone", {QSize(640, 480)}, u"Economy(640x480)"_s, {640, 480});
    row("unknown", {QSize(800, 480), 30U}, fullHd, {1920, 1080});
    row("turned round", {QSize(480, 640)}, fullHd, {1920, 1080});
    row("width alone fits", {QSize(1280, 721)}, fullHd, {1920, 1080});
    row("invalid", {QSize(), 0U}, fullHd, {1920, 1080});
    row("no size", {u"HD"_s}, fullHd, {1920, 1080});
    row("nothing", {}, fullHd, {1920, 1080});
}

void StreamDialogsTest::recordingValuesAreShown() {
    QFETCH(QVariantList, values);
    QFETCH(QString, checked);
    QFETCH(QSize, size);
    ClDialogRecSetting dialog(nullptr);
    dialog.setParam({QSize(1280, 720)});
    dialog.setParam(values);
    QCOMPARE(DialogControls(dialog).values(), QStringList{checked});
    QCOMPARE(dialog.getParam(), QVariantList{size});
}

void StreamDialogsTest::liveValuesAreShown_data() {
    QTest::addColumn<QVariantList>("values");
    QTest::addColumn<QStringList>("checked");
    QTest::addColumn<QVariantList>("result");
    const QSize fine(800, 480);
    const QSize standard(320, 240);
    const auto row = [](const char* name, const QVariantList& values, const QStringList& checked,
                        const QVariantList& result) {
        QTest::newRow(name) << values << checked << result;
    };
    for (const unsigned int rate : {30U, 15U, 10U, 6U, 1U}) {
        const QString text = u"%1 sheets(%1fps)"_s.arg(rate);
        QTest::addRow("fine, %u", rate)
            << QVariantList{fine, rate} << QStringList{u"Fine(800x480)"_s, text}
            << QVariantList{fine, rate};
        QTest::addRow("standard, %u", rate)
            << QVariantList{standard, rate} << QStringList{u"Standard(320x240)"_s, text}
            << QVariantList{standard, rate};
    }
    const QStringList defaults{u"Standard(320x240)"_s, u"30 sheets(30fps)"_s};
    for (const unsigned int rate : {0U, 2U, 5U, 29U, 31U, 60U, 0xFFFFFFFFU}) {
        QTest::addRow("rate %u", rate)
            << QVariantList{standard, rate} << defaults << QVariantList{standard, 30U};
    }
    row("no rate", {fine}, {u"Fine(800x480)"_s, u"30 sheets(30fps)"_s}, {fine, 30U});
    row("unknown size", {QSize(640, 480), 6U}, {u"Standard(320x240)"_s, u"6 sheets(6fps)"_s},
        {standard, 6U});
    row("invalid size", {QSize(), 0U}, defaults, {standard, 30U});
    row("nothing", {}, defaults, {standard, 30U});
}

void StreamDialogsTest::liveValuesAreShown() {
    QFETCH(QVariantList, values);
    QFETCH(QStringList, checked);
    QFETCH(QVariantList, result);
    ClDialogStreamSetting dialog(nullptr);
    dialog.setParam({QSize(800, 480), 10U});
    dialog.setParam(values);
    QCOMPARE(DialogControls(dialog).values(), checked);
    QCOMPARE(dialog.getParam(), result);
}

void StreamDialogsTest::aClickedChoiceIsReturned() {
    const QList<QSize> sizes{{1920, 1080}, {1280, 720}, {640, 480}};
    ClDialogRecSetting dialog(nullptr);
    dialog.show();
    for (qsizetype index = 0; index < sizes.size(); ++index) {
        DialogControls(dialog).click(REC_TEXTS[index + 1]);
        QCOMPARE(DialogControls(dialog).values(), QStringList{REC_TEXTS[index + 1]});
        QCOMPARE(dialog.getParam(), QVariantList{sizes[index]});
    }
}

void StreamDialogsTest::sizeAndRateAreChosenApart() {
    ClDialogStreamSetting dialog(nullptr);
    dialog.setParam({QSize(800, 480), 15U});
    dialog.show();
    DialogControls(dialog).click(u"1 sheets(1fps)"_s);
    QCOMPARE(dialog.getParam(), (QVariantList{QSize(800, 480), 1U}));
    DialogControls(dialog).click(u"Standard(320x240)"_s);
    QCOMPARE(dialog.getParam(), (QVariantList{QSize(320, 240), 1U}));
    DialogControls(dialog).click(u"10 sheets(10fps)"_s);
    QCOMPARE(dialog.getParam(), (QVariantList{QSize(320, 240), 10U}));
}

void StreamDialogsTest::theKeyboardMovesWithinAGroup() {
    ClDialogStreamSetting dialog(nullptr);
    dialog.setParam({QSize(320, 240), 15U});
    dialog.show();
    dialog.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    const auto focused = [] {
        const auto* button = qobject_cast<QAbstractButton*>(QApplication::focusWidget());
        return button == nullptr ? QString() : button->text();
    };
    QCOMPARE(focused(), u"Standard(320x240)"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(focused(), u"15 sheets(15fps)"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    QCOMPARE(dialog.getParam(), (QVariantList{QSize(800, 480), 10U}));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(focused(), u"OK"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
}

void StreamDialogsTest::everyTextIsWhollySeen_data() {
    QTest::addColumn<QString>("catalogue");
    QTest::newRow("English") << u":/lang/en"_s;
    QTest::newRow("Japanese") << u":/lang/ja"_s;
}

void StreamDialogsTest::everyTextIsWhollySeen() {
    QFETCH(QString, catalogue);
    QTranslator translator;
    QVERIFY(translator.load(catalogue));
    QCoreApplication::installTranslator(&translator);
    ClDialogRecSetting rec(nullptr);
    ClDialogStreamSetting stream(nullptr);
    for (QWidget* dialog : {static_cast<QWidget*>(&rec), static_cast<QWidget*>(&stream)}) {
        // Whatever a small screen leaves of the size that is asked for.
        dialog->resize(50, 50);
        dialog->show();
        QVERIFY(dialog->width() >= 170);
        for (const QWidget* child : dialog->findChildren<QWidget*>()) {
            QVERIFY(child->width() >= child->sizeHint().width());
            QVERIFY(child->height() >= child->sizeHint().height());
        }
    }
}

const TestSubject registered = subjectWithWidgets<StreamDialogsTest>();
#include "StreamDialogsTest.moc"
