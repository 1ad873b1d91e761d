// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/VirtualUsbBus.h"
#include "tests/endurance/WalkSteps.h"

#include <QObject>

#include <functional>

class QWidget;

/// Somebody who takes the steps of a walk in a window, also while dialogs are open, and pulls and
/// plugs the camera. Main thread.
class WalkingUser : public QObject {
    Q_OBJECT

public:
    WalkingUser(QWidget& window, nubo::simulator::VirtualUsbBus& bus, nubo::simulator::DeviceId id);

    /// Takes all steps, and closes what is open then. Runs the event loop.
    void take(const Walk& walk);
    /// Closes whatever opens until the condition holds and nothing is open. @return whether that
    /// has come soon
    [[nodiscard]] bool closeAllUntil(const std::function<bool()>& condition);

private:
    void act();
    void perform(const stStep& step);
    /// The dialog that can be operated, or the window.
    [[nodiscard]] QWidget& top() const;
    void closeTop();

    void clickButton(int number);
    void clickChoice(int number);
    void type(int edit, int text);
    void press(int control, int key);
    void chooseRow(int number);
    void accept();
    void disturb(const stStep& step);

    QWidget& m_window;
    nubo::simulator::VirtualUsbBus& m_bus;
    nubo::simulator::DeviceId m_id;
    Walk m_steps;
    bool m_isWalking = false;
    int m_underWay = 0;  ///< steps whose dialogs are still open
};
