// SPDX-License-Identifier: MIT
#pragma once

#include "app/ClMainWidget.h"
#include "protocol/CommandIdentifiers.h"
#include "tests/app/RecordingPage.h"
#include "ui/ClButtonMode.h"

#include <QSignalSpy>
#include <QStackedLayout>
#include <QTest>

#include <memory>

/// The main window with nobody on the USB side: what would go there ends in a spy. In the place of
/// the pages stand ones that note what happens to them.
class WindowBench {
public:
    WindowBench()
        : sent(withoutUsb(window), &ClMainWidget::sigSendCommand),
          m_stack(window.findChild<QStackedLayout*>()) {
        for (int mode = 1; mode <= 5; ++mode) {
            const std::unique_ptr<QWidget> real(m_stack->widget(mode));
            m_stack->removeWidget(real.get());
            m_pages.append(new RecordingPage);
            m_stack->insertWidget(mode, m_pages.last());
        }
        window.show();
    }

    [[nodiscard]] int modeOnShow() const { return m_stack->currentIndex(); }
    [[nodiscard]] RecordingPage& page(int mode) const { return *m_pages.at(mode - 1); }
    [[nodiscard]] ClWidgetBase& notConnected() const {
        return *qobject_cast<ClWidgetBase*>(m_stack->widget(0));
    }
    [[nodiscard]] QList<ClButtonMode*> buttons() const {
        return window.findChildren<ClButtonMode*>();
    }
    void click(int mode) const { QTest::mouseClick(buttons().at(mode - 1), Qt::LeftButton); }

    ClMainWidget window;
    QSignalSpy sent;  ///< to the USB side

private:
    /// The USB side would answer requests about cameras that it does not know.
    static ClMainWidget* withoutUsb(ClMainWidget& window) {
        if (!QObject::disconnect(&window, &ClMainWidget::sigSendCommand, nullptr, nullptr)) {
            qFatal("The window is not connected to the USB side.");
        }
        return &window;
    }

    QStackedLayout* m_stack;
    QList<RecordingPage*> m_pages;
};
