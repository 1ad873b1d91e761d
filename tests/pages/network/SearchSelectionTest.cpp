// SPDX-License-Identifier: MIT
#include "pages/network/ClWidgetInfrastructureSearch.h"
#include "tests/pages/PageBench.h"
#include "tests/pages/network/AccesspointMessages.h"
#include "tests/support/Patience.h"
#include "tests/support/TestSubject.h"
#include "tests/ui/Modal.h"
#include "tests/ui/Mouse.h"
#include "ui/ClWidgetApInfo.h"

#include <QAccessible>
#include <QPointer>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

const AccesspointList FOUND{
    {u"Harbour"_s, {}, 0, 4, 0, 90},
    {u"Quay"_s, {}, 0, 0, 0, 40},
    {u"<b>Lighthouse</b> & Co"_s, {}, 0, 1, 0, 20},
};
constexpr int ENCRYPTED = 0;
constexpr int OPEN = 1;
constexpr int ODD = 2;

const QString SET_SSID = u"USB_NUBO_CMD_SET_INFRA_SSID QString %1"_s;
const QString SET_KEY = u"USB_NUBO_CMD_SET_INFRA_KEY QString %1"_s;

/// Types @p key into the key dialog.
void typeKey(QWidget& dialog, const QString& key) {
    QTest::keyClicks(dialog.findChild<QLineEdit*>(), key);
}

}  // namespace

/// Choosing an access point of the list: the key dialog, what is written, and what follows.
class SearchSelectionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setApplicationName(u"Test program"_s); }
    void init();
    void cleanup() { m_bench.reset(); }

    void anOpenAccessPointIsWrittenAlone();
    void anEncryptedOneIsWrittenWithItsKey_data();
    void anEncryptedOneIsWrittenWithItsKey();
    void theKeyIsAskedForByTheDialog();
    void nothingIsWrittenBeforeTheKeyIsThere();
    void aCancelledKeyWritesNothing();
    void anEmptyKeyIsRefusedAndWritesNothing();
    void aSingleOrARightClickDoesNothing();
    void theTabKeyFollowsTheEye();
    void keyboardAndScreenReaderSelectToo();
    void aScreenReaderOpensOneDialogAtATime();

    void theAcceptedSsidLeadsBack();
    void theAcceptedKeyDoesNot();
    void aRefusedSsidStays();
    void aCancelledSelectionAwaitsNothing();

    void aNewScanWhileTheKeyIsTyped_data();
    void aNewScanWhileTheKeyIsTyped();
    void aKeyForACameraThatHasLeftIsAskedNoMore();

private:
    [[nodiscard]] ClWidgetInfrastructureSearch& page() { return m_bench->page; }
    [[nodiscard]] ClWidgetApInfo& row(int number) {
        return *page().findChildren<ClWidgetApInfo*>()[number];
    }
    /// As a user does: by the window.
    void doubleClick(int number) {
        ClWidgetApInfo& target = row(number);
        QTest::mouseDClick(page().windowHandle(), Qt::LeftButton, {}, inWindow(target, {90, 25}));
    }
    void pressByScreenReader(int number) {
        QAccessible::queryAccessibleInterface(&row(number))
            ->actionInterface()
            ->doAction(QAccessibleActionInterface::pressAction());
    }
    void willTypeKey(const QString& key) {
        m_bench->boxes.setAction([key](QWidget& dialog) {
            typeKey(dialog, key);
            acceptBox(dialog);
        });
    }

    std::optional<PageBench<ClWidgetInfrastructureSearch>> m_bench;
    QList<int> m_left;
};

void SearchSelectionTest::init() {
    m_bench.emplace();
    m_left.clear();
    connect(&page(), &ClWidgetInfrastructureSearch::sigChangePage, this,
            [this](int index) { m_left.append(index); });
    QVERIFY(QTest::qWaitForWindowExposed(&page()));
    page().slotReceiveCommand(scanAnswer(FOUND));
}

void SearchSelectionTest::anOpenAccessPointIsWrittenAlone() {
    doubleClick(OPEN);
    QCOMPARE(m_bench->takeSent(), QStringList{SET_SSID.arg(u"Quay"_s)});
    QVERIFY(m_bench->boxes.boxes().isEmpty());
    QVERIFY(m_left.isEmpty());
}

void SearchSelectionTest::anEncryptedOneIsWrittenWithItsKey_data() {
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("ssid");
    QTest::newRow("plain name") << ENCRYPTED << u"Harbour"_s;
    QTest::newRow("markup") << ODD << u"<b>Lighthouse</b> & Co"_s;
}

void SearchSelectionTest::anEncryptedOneIsWrittenWithItsKey() {
    QFETCH(int, number);
    QFETCH(QString, ssid);
    willTypeKey(u"Key9"_s);
    doubleClick(number);
    QCOMPARE(m_bench->takeSent(), (QStringList{SET_SSID.arg(ssid), SET_KEY.arg(u"Key9"_s)}));
    QVERIFY(m_left.isEmpty());
}

void SearchSelectionTest::theKeyIsAskedForByTheDialog() {
    willTypeKey(u"Key9"_s);
    doubleClick(ENCRYPTED);
    QCOMPARE(m_bench->boxes.texts(), QStringList{u"Input the encryption key of AP"_s});
    QCOMPARE(m_bench->boxes.boxes().first().title, u"Test program"_s);
    QCOMPARE(m_bench->boxes.boxes().first().parent, &page());
}

void SearchSelectionTest::nothingIsWrittenBeforeTheKeyIsThere() {
    QStringList before;
    m_bench->boxes.setAction([&](QWidget& dialog) {
        typeKey(dialog, u"Key9"_s);
        before = m_bench->takeSent();
        QTest::keyClick(dialog.findChild<QLineEdit*>(), Qt::Key_Return);
    });
    doubleClick(ENCRYPTED);
    QVERIFY(before.isEmpty());
    QCOMPARE(m_bench->takeSent().size(), 2);
}

void SearchSelectionTest::aCancelledKeyWritesNothing() {
    const BoxUser::Action close = [](QWidget& dialog) { dialog.close(); };
    for (const BoxUser::Action& decline :
         {BoxUser::Action(rejectBox), BoxUser::Action(escapeBox), close}) {
        m_bench->boxes.setAction([&decline](QWidget& dialog) {
            typeKey(dialog, u"Key9"_s);
            decline(dialog);
        });
        doubleClick(ENCRYPTED);
    }
    QCOMPARE(m_bench->boxes.boxes().size(), 3);
    QVERIFY(m_bench->takeSent().isEmpty());
}

void SearchSelectionTest::anEmptyKeyIsRefusedAndWritesNothing() {
    QString refusal;
    bool isStillOpen = false;
    m_bench->boxes.setAction([&](QWidget& dialog) {
        const ModalAnswer answer([&](QDialog& box) {
            refusal = box.findChild<QLabel*>()->text();
            box.accept();
        });
        acceptBox(dialog);
        isStillOpen = dialog.isVisible();
        rejectBox(dialog);
    });
    doubleClick(ENCRYPTED);
    QCOMPARE(refusal, u"Not input key"_s);
    QVERIFY(isStillOpen);
    QVERIFY(m_bench->takeSent().isEmpty());
}

void SearchSelectionTest::aSingleOrARightClickDoesNothing() {
    clickMouse(row(OPEN));
    QTest::mouseDClick(&row(OPEN), Qt::RightButton);
    QTest::mouseDClick(&row(ENCRYPTED), Qt::RightButton);
    QVERIFY(m_bench->boxes.boxes().isEmpty());
    QVERIFY(m_bench->takeSent().isEmpty());
}

void SearchSelectionTest::theTabKeyFollowsTheEye() {
    page().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&page()));
    row(0).setFocus();
    // A new list takes the place of the old one.
    for (int round = 0; round < 2; ++round) {
        for (QWidget* stop : QList<QWidget*>{&row(0), &m_bench->user.button(u"Research"_s),
                                             &m_bench->user.button(u"Back"_s)}) {
            QCOMPARE(QApplication::focusWidget(), stop);
            if (stop == &m_bench->user.button(u"Research"_s)) {
                page().slotReceiveCommand(scanAnswer(FOUND));
            }
            QTest::keyClick(stop, Qt::Key_Tab);
        }
    }
}

void SearchSelectionTest::keyboardAndScreenReaderSelectToo() {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Space}) {
        row(0).setFocus();
        QTest::keyClick(&row(0), Qt::Key_Down);
        QTest::keyClick(QApplication::focusWidget(), key);
        QCOMPARE(m_bench->takeSent(), QStringList{SET_SSID.arg(u"Quay"_s)});
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
    }

    willTypeKey(u"Key9"_s);
    pressByScreenReader(ENCRYPTED);
    TRY_COMPARE(m_bench->sent.size(), 2);
    QCOMPARE(m_bench->takeSent(),
             (QStringList{SET_SSID.arg(u"Harbour"_s), SET_KEY.arg(u"Key9"_s)}));
}

void SearchSelectionTest::aScreenReaderOpensOneDialogAtATime() {
    willTypeKey(u"Key9"_s);
    pressByScreenReader(ENCRYPTED);
    pressByScreenReader(ODD);
    TRY_COMPARE(m_bench->sent.size(), 2);
    QCoreApplication::processEvents();
    QCOMPARE(m_bench->takeSent(),
             (QStringList{SET_SSID.arg(u"Harbour"_s), SET_KEY.arg(u"Key9"_s)}));
}

void SearchSelectionTest::theAcceptedSsidLeadsBack() {
    doubleClick(OPEN);
    m_bench->succeed(USB_NUBO_CMD_SET_INFRA_SSID);
    QCOMPARE(m_left, QList<int>{0});
}

void SearchSelectionTest::theAcceptedKeyDoesNot() {
    willTypeKey(u"Key9"_s);
    doubleClick(ENCRYPTED);
    m_bench->succeed(USB_NUBO_CMD_SET_INFRA_KEY);
    QVERIFY(m_left.isEmpty());
    m_bench->succeed(USB_NUBO_CMD_SET_INFRA_SSID);
    QCOMPARE(m_left, QList<int>{0});
}

void SearchSelectionTest::aRefusedSsidStays() {
    doubleClick(OPEN);
    m_bench->respond(USB_NUBO_CMD_SET_INFRA_SSID, 0xFFFB);
    QCOMPARE(m_bench->boxes.texts(), QStringList{u"Parameter setting failed"_s});
    QVERIFY(m_left.isEmpty());
    doubleClick(OPEN);
    m_bench->succeed(USB_NUBO_CMD_SET_INFRA_SSID);
    QCOMPARE(m_left, QList<int>{0});
}

void SearchSelectionTest::aCancelledSelectionAwaitsNothing() {
    m_bench->boxes.setAction(rejectBox);
    doubleClick(ENCRYPTED);
    m_bench->succeed(USB_NUBO_CMD_SET_INFRA_SSID);
    QVERIFY(m_left.isEmpty());
}

void SearchSelectionTest::aNewScanWhileTheKeyIsTyped_data() {
    QTest::addColumn<bool>("isByKey");
    QTest::newRow("double click") << false;
    QTest::newRow("Enter") << true;
}

// The row that was selected is on the call stack when its list goes.
void SearchSelectionTest::aNewScanWhileTheKeyIsTyped() {
    QFETCH(bool, isByKey);
    const QPointer<ClWidgetApInfo> selected = &row(ENCRYPTED);
    m_bench->boxes.setAction([&](QWidget& dialog) {
        page().slotReceiveCommand(scanAnswer({}));
        TRY_VERIFY(selected.isNull());
        typeKey(dialog, u"Key9"_s);
        acceptBox(dialog);
    });
    if (isByKey) {
        selected->setFocus();
        QTest::keyClick(page().windowHandle(), Qt::Key_Return);
    } else {
        doubleClick(ENCRYPTED);
    }
    QVERIFY(selected.isNull());
    QCOMPARE(m_bench->takeSent(),
             (QStringList{SET_SSID.arg(u"Harbour"_s), SET_KEY.arg(u"Key9"_s)}));
}

void SearchSelectionTest::aKeyForACameraThatHasLeftIsAskedNoMore() {
    bool isClosed = false;
    m_bench->boxes.setAction([&](QWidget& dialog) {
        typeKey(dialog, u"Key9"_s);
        page().hide();
        isClosed = !dialog.isVisible();
    });
    doubleClick(ENCRYPTED);
    QVERIFY(isClosed);
    QCOMPARE(m_bench->boxes.boxes().size(), 1);
    QVERIFY(m_bench->takeSent().isEmpty());
}

const TestSubject registered = subjectWithWidgets<SearchSelectionTest>();
#include "SearchSelectionTest.moc"
