// SPDX-License-Identifier: MIT
#include <libusb.h>

#include <QStackedLayout>
#include <QTest>

#include "app/ClMainWidget.h"
#include "pages/ClWidgetNotConnect.h"
#include "tests/support/TestSubject.h"
#include "usb/ClUsbManager.h"

// Stands in for libusb's own, which the linker hides (--wrap): a computer whose USB cannot be used.
extern "C" int __wrap_libusb_init(libusb_context**);
extern "C" int __wrap_libusb_init(libusb_context**) {
    return LIBUSB_ERROR_ACCESS;
}

class WithoutUsbTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void saysWhyOnceAndNeverSearches();
    void leavesTheNotConnectedPage();
};

void WithoutUsbTest::saysWhyOnceAndNeverSearches() {
    ClUsbManager manager;
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^USB cannot be used:")));
    QCOMPARE(manager.initialize({{0x1209, 0x0001}}), int(LIBUSB_ERROR_ACCESS));
    QVERIFY(!manager.isInitialized());
    QCOMPARE(manager.openDevice(), 0);
    QVERIFY(!manager.canCommunication());
    QVERIFY(manager.findChildren<QTimer*>().isEmpty());
}

void WithoutUsbTest::leavesTheNotConnectedPage() {
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^USB cannot be used:")));
    ClMainWidget window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const auto* pages = window.findChild<QStackedLayout*>();
    QVERIFY(qobject_cast<ClWidgetNotConnect*>(pages->currentWidget()) != nullptr);
    QVERIFY(window.close());
}

const TestSubject registered = subjectWithWidgets<WithoutUsbTest>();

#include "WithoutUsbTest.moc"
