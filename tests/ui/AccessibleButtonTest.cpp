// SPDX-License-Identifier: MIT
#include "tests/support/TestSubject.h"
#include "ui/ClRollOverToolBtn.h"
#include "ui/ClWidgetBase.h"

#include <QAccessible>
#include <QCheckBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QString TOGGLE = QAccessibleActionInterface::toggleAction();
const QString PRESS = QAccessibleActionInterface::pressAction();

struct stButton {
    const char* name;
    QAbstractButton* (*create)(QWidget* page);
    QString action;
    QAccessible::Role role;
};

template <class Button, bool IsCheckable>
QAbstractButton* create(QWidget* page) {
    auto* const button = new Button(page);
    button->setCheckable(IsCheckable);
    button->setText(u"&Show"_s);
    return button;
}

const QList<stButton> BUTTONS{
    {"check box", create<QCheckBox, true>, TOGGLE, QAccessible::CheckBox},
    {"push button that stays down", create<QPushButton, true>, TOGGLE, QAccessible::Button},
    {"push button", create<QPushButton, false>, PRESS, QAccessible::Button},
    {"drawn button", create<ClRollOverToolBtn, false>, PRESS, QAccessible::Button},
    {"drawn choice", create<ClRollOverToolBtn, true>, PRESS, QAccessible::RadioButton},
};

void addRows() {
    QTest::addColumn<int>("index");
    for (int i = 0; i < BUTTONS.size(); ++i) {
        QTest::newRow(BUTTONS[i].name) << i;
    }
}

}  // namespace

/// The buttons of a page as assistive technology sees them.
class AccessibleButtonTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_page.reset(); }

    void tellsWhatItIs_data() { addRows(); }
    void tellsWhatItIs();
    void itsActionIsAClick_data() { addRows(); }
    void itsActionIsAClick();
    void tellsWhetherItIsChecked_data() { addRows(); }
    void tellsWhetherItIsChecked();
    void aDisabledButtonHasNoAction_data() { addRows(); }
    void aDisabledButtonHasNoAction();
    void ownNameGoesBeforeTheText_data() { addRows(); }
    void ownNameGoesBeforeTheText();

private:
    [[nodiscard]] QAccessibleInterface& seen() const {
        return *QAccessible::queryAccessibleInterface(m_button);
    }

    std::optional<ClWidgetBase> m_page;
    stButton m_row{};
    QAbstractButton* m_button = nullptr;
};

void AccessibleButtonTest::init() {
    QFETCH(int, index);
    m_row = BUTTONS[index];
    m_page.emplace();
    m_button = m_row.create(&*m_page);
    m_page->show();
}

void AccessibleButtonTest::tellsWhatItIs() {
    QCOMPARE(seen().role(), m_row.role);
    QCOMPARE(seen().text(QAccessible::Name), u"Show"_s);
    QCOMPARE(seen().state().checkable, m_button->isCheckable());
}

void AccessibleButtonTest::itsActionIsAClick() {
    const QSignalSpy clicked(m_button, &QAbstractButton::clicked);
    QCOMPARE(seen().actionInterface()->actionNames().first(), m_row.action);
    seen().actionInterface()->doAction(m_row.action);
    QTRY_COMPARE(clicked.size(), 1);
    QCOMPARE(m_button->isChecked(), m_button->isCheckable());
}

void AccessibleButtonTest::tellsWhetherItIsChecked() {
    QVERIFY(!seen().state().checked);
    m_button->setChecked(true);
    QCOMPARE(seen().state().checked, m_button->isCheckable());
}

void AccessibleButtonTest::aDisabledButtonHasNoAction() {
    m_button->setEnabled(false);
    const QSignalSpy pressed(m_button, &QAbstractButton::pressed);
    QVERIFY(!seen().actionInterface()->actionNames().contains(m_row.action));
    seen().actionInterface()->doAction(m_row.action);
    QVERIFY(pressed.isEmpty());
}

void AccessibleButtonTest::ownNameGoesBeforeTheText() {
    m_button->setAccessibleName(u"Show & tell"_s);
    QCOMPARE(seen().text(QAccessible::Name), u"Show & tell"_s);
}

const TestSubject registered = subjectWithWidgets<AccessibleButtonTest>();
#include "AccessibleButtonTest.moc"
