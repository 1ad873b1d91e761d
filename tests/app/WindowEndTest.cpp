// SPDX-License-Identifier: MIT
#include <libusb.h>

#include "tests/app/BusBench.h"

#include <QPointer>
#include <QStackedLayout>

using namespace nubo::simulator;

namespace {

QList<QPointer<QWidget>> g_pages;
int g_pagesAtTheEndOfUsb = -1;

}  // namespace

extern "C" void __real_libusb_exit(libusb_context*);
// Stands around libusb's own (--wrap): the last thing that the USB side does.
extern "C" void __wrap_libusb_exit(libusb_context*);
extern "C" void __wrap_libusb_exit(libusb_context* context) {
    g_pagesAtTheEndOfUsb = static_cast<int>(g_pages.size() - g_pages.count(nullptr));
    __real_libusb_exit(context);
}

/// How the window goes.
class WindowEndTest : public QObject {
    Q_OBJECT

public:
    explicit WindowEndTest(VirtualUsbBus& /*bus*/) {}

private Q_SLOTS:
    /// What the worker thread still has under way may name a page as its sender.
    static void usbEndsBeforeThePagesGo();
};

void WindowEndTest::usbEndsBeforeThePagesGo() {
    {
        const ClMainWidget window;
        const auto* pages = window.findChild<QStackedLayout*>();
        for (int mode = 0; mode < pages->count(); ++mode) {
            g_pages.append(pages->widget(mode));
        }
    }
    QCOMPARE(g_pagesAtTheEndOfUsb, 6);
    QCOMPARE(g_pages.count(nullptr), 6);
}

const TestSubject registered = subjectOnBus<WindowEndTest>();

#include "WindowEndTest.moc"
