// SPDX-License-Identifier: MIT
#include "pages/basic/ClDialogCameraName.h"
#include "tests/pages/DialogParameters.h"
#include "tests/support/BoxUser.h"
#include "tests/support/DialogControls.h"
#include "tests/support/TestSubject.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

/// The dialog of the camera's name.
class CameraNameDialogTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setApplicationName(u"Test program"_s); }
    void init();
    void cleanup() { m_dialog.reset(); }

    void carriesTheNameInAndOut_data();
    void carriesTheNameInAndOut();
    void takesUpToEightLettersAndDigits();
    void refusesWhatIsNoLetterOrDigit_data();
    void refusesWhatIsNoLetterOrDigit();
    void refusesToPasteWhatIsTooLong();
    void aForeignNameCanBeReplaced();
    void anEmptyNameIsComplainedOf();

private:
    [[nodiscard]] QStringList values() const { return DialogControls(*m_dialog).values(); }
    [[nodiscard]] QLineEdit* field() const { return m_dialog->findChild<QLineEdit*>(); }

    std::unique_ptr<ClDialogCameraName> m_dialog;
};

void CameraNameDialogTest::init() {
    m_dialog = std::make_unique<ClDialogCameraName>();
    m_dialog->show();
    QVERIFY(QTest::qWaitForWindowActive(m_dialog.get()));
}

void CameraNameDialogTest::carriesTheNameInAndOut_data() {
    QTest::addColumn<QVariantList>("params");
    QTest::addColumn<QString>("name");
    QTest::newRow("name") << QVariantList{u"NuBo"_s} << u"NuBo"_s;
    QTest::newRow("eight characters") << QVariantList{u"Harbour7"_s} << u"Harbour7"_s;
    QTest::newRow("no name") << QVariantList{QString()} << QString();
    QTest::newRow("nothing") << QVariantList{} << QString();
    QTest::newRow("an invalid value") << QVariantList{QVariant()} << QString();
    QTest::newRow("another type") << QVariantList{QVariant(QVariantList{1, 2})} << QString();
}

void CameraNameDialogTest::carriesTheNameInAndOut() {
    QFETCH(QVariantList, params);
    QFETCH(QString, name);
    m_dialog->setParam(params);
    QCOMPARE(values(), QStringList{name});
    QCOMPARE(typedValues(m_dialog->getParam()), QStringList{u"QString "_s + name});
}

void CameraNameDialogTest::takesUpToEightLettersAndDigits() {
    QTest::keyClicks(field(), u"aZ09bY187"_s);
    QCOMPARE(values(), QStringList{u"aZ09bY18"_s});
}

void CameraNameDialogTest::refusesWhatIsNoLetterOrDigit_data() {
    QTest::addColumn<QString>("typed");
    for (const QString& typed : {u"_"_s, u" "_s, u"-"_s, u"."_s, u"@"_s, u"["_s, u"`"_s, u"{"_s,
                                 u"/"_s, u":"_s, u"é"_s, u"ß"_s, u"あ"_s, u"Ａ"_s, u"９"_s}) {
        QTest::newRow(qUtf8Printable(typed)) << typed;
    }
}

void CameraNameDialogTest::refusesWhatIsNoLetterOrDigit() {
    QFETCH(QString, typed);
    m_dialog->setParam({u"NuBo"_s});
    QTest::keyClick(field(), Qt::Key_Home);
    for (int place = 0; place <= 4; ++place) {
        typeAtOnce(field(), typed);
        QCOMPARE(values(), QStringList{u"NuBo"_s});
        QTest::keyClick(field(), Qt::Key_Right);
    }
    typeAtOnce(field(), u"1"_s);
    QCOMPARE(values(), QStringList{u"NuBo1"_s});
}

void CameraNameDialogTest::refusesToPasteWhatIsTooLong() {
    m_dialog->setParam({u"NuBo"_s});
    QGuiApplication::clipboard()->setText(u"12345"_s);
    QTest::keyClick(field(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(values(), QStringList{u"NuBo"_s});
    QGuiApplication::clipboard()->setText(u"1234"_s);
    QTest::keyClick(field(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(values(), QStringList{u"NuBo1234"_s});
}

void CameraNameDialogTest::aForeignNameCanBeReplaced() {
    m_dialog->setParam({u"カメラ_1 of the harbour"_s});
    DialogControls(*m_dialog).fill(0, u"NuBo"_s);
    QCOMPARE(values(), QStringList{u"NuBo"_s});
}

void CameraNameDialogTest::anEmptyNameIsComplainedOf() {
    const BoxUser user;
    DialogControls(*m_dialog).click(u"OK"_s);
    QCOMPARE(user.boxes(), (QList<stModalBox>{{u"Test program"_s, u"No camera name"_s,
                                               QStringList{u"OK"_s}, m_dialog.get()}}));
    QVERIFY(m_dialog->isVisible());
    QTest::keyClicks(field(), u"a"_s);
    DialogControls(*m_dialog).click(u"OK"_s);
    QCOMPARE(user.boxes().size(), 1);
    QVERIFY(m_dialog->isHidden());
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
}

const TestSubject registered = subjectWithWidgets<CameraNameDialogTest>();
#include "CameraNameDialogTest.moc"
