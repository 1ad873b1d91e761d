// SPDX-License-Identifier: MIT
#include "tests/endurance/WalkingUser.h"

#include "simulator/Fault.h"
#include "simulator/Wire.h"
#include "tests/support/Patience.h"
#include "ui/ClButtonMode.h"
#include "ui/ClCaptionBar.h"
#include "ui/ClWidgetApInfo.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDeadlineTimer>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include <array>

using namespace nubo::simulator;

namespace {

constexpr std::array<QStringView, 8> TEXTS{
    u"Gull2",       u"",           u"192.168.0.77", u"255.255.255.0",
    u"not good !?", u"breakwater", u"0.0.0.0",      u"Caf\u00E9 99"};
constexpr std::array KEYS{Qt::Key_Up,  Qt::Key_Down,   Qt::Key_Space,
                          Qt::Key_Tab, Qt::Key_PageUp, Qt::Key_Return};
constexpr int DELAY_MS = 40;
constexpr int IDLE_MS = 1;
constexpr int LONG_PATIENCE_MS = 3 * PATIENCE_MS;

/// Those below @p parent that a user can reach.
template <class Widget>
QList<Widget*> reachable(const QWidget& parent) {
    QList<Widget*> widgets = parent.findChildren<Widget*>();
    widgets.removeIf([&parent](const Widget* widget) {
        return !widget->isVisible() || !widget->isEnabled() || widget->window() != &parent;
    });
    return widgets;
}

template <class Widget>
Widget* chosen(const QList<Widget*>& widgets, int number) {
    return widgets.isEmpty() ? nullptr : widgets.at(number % widgets.size());
}

void click(QWidget* widget) {
    if (widget != nullptr) {
        QTest::mouseClick(widget, Qt::LeftButton);
    }
}

}  // namespace

WalkingUser::WalkingUser(QWidget& window, VirtualUsbBus& bus, DeviceId id)
    : m_window(window),
      m_bus(bus),
      m_id(id) {
    QTimer::singleShot(0, this, &WalkingUser::act);
}

void WalkingUser::take(const Walk& walk) {
    m_steps = walk;
    static_cast<void>(closeAllUntil([] { return true; }));
}

bool WalkingUser::closeAllUntil(const std::function<bool()>& condition) {
    const auto isDone = [&] {
        return m_steps.isEmpty() && m_underWay == 0 &&
               QApplication::activeModalWidget() == nullptr && condition();
    };
    m_isWalking = true;
    QDeadlineTimer deadline(LONG_PATIENCE_MS);
    while (!isDone() && !deadline.hasExpired()) {
        QTest::qWait(1);
    }
    m_isWalking = false;
    return isDone();
}

void WalkingUser::act() {
    const int pause = m_steps.isEmpty() ? IDLE_MS : m_steps.first().numbers[0];
    const bool isPause = m_steps.isEmpty() || m_steps.first().kind == eStep::Wait;
    // A timer of its own for each, and before the step: that may open a dialog, whose loop runs
    // until a later step closes it.
    QTimer::singleShot(isPause ? pause : 0, this, &WalkingUser::act);
    if (!m_isWalking) {
        return;
    }
    ++m_underWay;
    if (m_steps.isEmpty()) {
        closeTop();
    } else {
        perform(m_steps.takeFirst());
    }
    --m_underWay;
}

void WalkingUser::perform(const stStep& step) {
    if (qEnvironmentVariableIsSet("NUBO_SHOW_STEPS")) {
        qInfo().noquote() << "step" << step.text();
    }
    const auto& [first, second, third, fourth] = step.numbers;
    switch (step.kind) {
        case eStep::Mode:
            click(chosen(reachable<ClButtonMode>(top()), first));
            break;
        case eStep::Button:
            clickButton(first);
            break;
        case eStep::Choice:
            clickChoice(first);
            break;
        case eStep::Type:
            type(first, second);
            break;
        case eStep::Key:
            press(first, second);
            break;
        case eStep::Row:
            chooseRow(first);
            break;
        case eStep::Escape:
            QTest::keyClick(&top(), Qt::Key_Escape);
            break;
        case eStep::Accept:
            accept();
            break;
        case eStep::Unplug:
            m_bus.unplug(m_id);
            break;
        case eStep::Plug:
            m_bus.replug(m_id);
            break;
        case eStep::Fault:
            disturb(step);
            break;
        case eStep::Wait:
            break;
    }
}

QWidget& WalkingUser::top() const {
    if (QWidget* popup = QApplication::activePopupWidget()) {
        return *popup;
    }
    QWidget* dialog = QApplication::activeModalWidget();
    return dialog == nullptr ? m_window : *dialog;
}

void WalkingUser::closeTop() {
    if (QWidget& open = top(); &open != &m_window) {
        open.close();
    }
}

void WalkingUser::clickButton(int number) {
    QList<QAbstractButton*> buttons = reachable<QAbstractButton>(top());
    buttons.removeIf([](const QAbstractButton* button) {
        return button->isCheckable() || qobject_cast<ClCaptionBar*>(button->parentWidget());
    });
    click(chosen(buttons, number));
}

void WalkingUser::clickChoice(int number) {
    QList<QAbstractButton*> buttons = reachable<QAbstractButton>(top());
    buttons.removeIf([](const QAbstractButton* button) {
        return !button->isCheckable() || qobject_cast<const ClButtonMode*>(button) != nullptr;
    });
    click(chosen(buttons, number));
}

void WalkingUser::type(int edit, int text) {
    QLineEdit* const chosenEdit = chosen(reachable<QLineEdit>(top()), edit);
    if (chosenEdit == nullptr) {
        return;
    }
    chosenEdit->clear();
    QTest::keyClicks(chosenEdit, TEXTS[static_cast<std::size_t>(text) % TEXTS.size()].toString());
}

void WalkingUser::press(int control, int key) {
    QList<QWidget*> controls = reachable<QWidget>(top());
    controls.removeIf(
        [](const QWidget* widget) { return (widget->focusPolicy() & Qt::TabFocus) == 0; });
    if (QWidget* const chosenControl = chosen(controls, control)) {
        chosenControl->setFocus();
        QTest::keyClick(chosenControl, KEYS[static_cast<std::size_t>(key) % KEYS.size()]);
    }
}

void WalkingUser::chooseRow(int number) {
    if (ClWidgetApInfo* const row = chosen(reachable<ClWidgetApInfo>(top()), number)) {
        QTest::mouseDClick(row, Qt::LeftButton);
    }
}

void WalkingUser::accept() {
    for (QAbstractButton* button : reachable<QAbstractButton>(top())) {
        const auto* box = qobject_cast<QDialogButtonBox*>(button->parentWidget());
        if (box != nullptr && box->buttonRole(button) == QDialogButtonBox::AcceptRole) {
            click(button);
            return;
        }
    }
}

void WalkingUser::disturb(const stStep& step) {
    const auto& [kind, unit, nth, count] = step.numbers;
    Fault fault;
    fault.kind = faultTable()[static_cast<std::size_t>(kind) % faultTable().size()].kind;
    fault.unit = unit == 0 ? FaultUnit::Transfer : FaultUnit::Command;
    fault.nth = static_cast<unsigned>(nth) + 1;
    fault.count = static_cast<unsigned>(count) + 1;
    switch (faultInfo(fault.kind).argument) {
        case FaultArgument::None:
            break;
        case FaultArgument::Milliseconds:
            fault.argument = DELAY_MS;
            break;
        case FaultArgument::Bytes:
            fault.argument = static_cast<std::uint32_t>(nth);
            break;
        case FaultArgument::Code:
            fault.argument = static_cast<std::uint32_t>(CameraResult::NotExecuted);
            break;
    }
    m_bus.addFault(m_id, fault);
}
