// SPDX-License-Identifier: MIT
#include "pages/network/ClWidgetInfrastructureDhcp.h"
#include "tests/pages/PageBench.h"
#include "tests/support/TestSubject.h"
#include "ui/ClLabelSepalator.h"

#include <QAccessible>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QString ADDRESS = u"IP Address"_s;
const QString SUBNETMASK = u"Subnetmask"_s;
const QString GATEWAY = u"Default Gateway"_s;
const QString ADDRESS_TITLE = u"Set the IP Address, Subnetmask and Default Gateway"_s;

}  // namespace

/// Where everything stands on the sub-page of the DHCP setting, what can be edited when, and how it
/// is reached without a mouse.
class InfrastructureDhcpLayoutTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_bench.emplace(); }
    void cleanup() { m_bench.reset(); }

    void everythingStandsAtItsPlace();
    void addressesAreEditedOnlyWhileDhcpIsOff();
    void screenReadersNameEveryControl();
    void theTabKeyFollowsTheEye();

private:
    [[nodiscard]] QAbstractButton& choice(const QString& text) const {
        return m_bench->user.button(text);
    }

    std::optional<PageBench<ClWidgetInfrastructureDhcp>> m_bench;
};

void InfrastructureDhcpLayoutTest::everythingStandsAtItsPlace() {
    const PageUser& user = m_bench->user;
    QCOMPARE(user.label(u"Set ON when use DHCP server"_s).pos(), QPoint(36, 41));
    const QWidget* row = user.label(u"DHCP"_s).parentWidget();
    QCOMPARE(row->x() + row->sizeHint().width(), 438);
    QCOMPARE(row->y(), 77);
    QCOMPARE(row->width(), row->sizeHint().width());
    const QRect caption = user.label(u"DHCP"_s).geometry();
    QCOMPARE(choice(u"ON"_s).x() - caption.right() - 1, 104);
    QCOMPARE(choice(u"OFF"_s).x() - choice(u"ON"_s).geometry().right() - 1, 20);
    QCOMPARE(m_bench->page.findChild<ClLabelSepalator*>()->pos(), QPoint(0, 117));
    QCOMPARE(user.label(ADDRESS_TITLE).pos(), QPoint(36, 148));

    const QList<std::pair<QString, int>> rows{{ADDRESS, 190}, {SUBNETMASK, 229}, {GATEWAY, 267}};
    for (const auto& [text, y] : rows) {
        const QLabel& label = user.label(text);
        QCOMPARE(label.pos(), QPoint(227 - label.sizeHint().width(), y));
        const QLineEdit& edit = user.edit(text);
        QCOMPARE(edit.pos(), QPoint(264, y));
        QCOMPARE(edit.width(), 199);
        QCOMPARE(edit.minimumWidth(), 199);
        QCOMPARE(edit.maximumWidth(), 199);
        // The caption and what is typed stand on one line.
        QCOMPARE(label.geometry().center().y(), edit.geometry().center().y());
    }

    const QWidget* box = choice(u"Back"_s).parentWidget();
    QCOMPARE(box->pos(), QPoint(585 - box->sizeHint().width(), 423));
    QCOMPARE(choice(u"Back"_s).minimumSize(), QSize(133, 30));
    QCOMPARE(choice(u"Decision"_s).minimumSize(), QSize(133, 30));
    QVERIFY(m_bench->page.rect().contains(box->geometry()));
}

void InfrastructureDhcpLayoutTest::addressesAreEditedOnlyWhileDhcpIsOff() {
    const auto isEnabled = [this](bool expected) {
        bool all = m_bench->user.label(ADDRESS_TITLE).isEnabled() == expected;
        for (const QString& text : {ADDRESS, SUBNETMASK, GATEWAY}) {
            all = all && m_bench->user.label(text).isEnabled() == expected &&
                  m_bench->user.edit(text).isEnabled() == expected;
        }
        return all;
    };
    QVERIFY(m_bench->user.isChecked(u"OFF"_s));
    QVERIFY(isEnabled(true));
    m_bench->user.click(u"ON"_s);
    QVERIFY(!m_bench->user.isChecked(u"OFF"_s));
    QVERIFY(isEnabled(false));
    QVERIFY(m_bench->user.label(u"Set ON when use DHCP server"_s).isEnabled());
    m_bench->user.click(u"OFF"_s);
    QVERIFY(isEnabled(true));
}

void InfrastructureDhcpLayoutTest::screenReadersNameEveryControl() {
    const auto name = [](QWidget& widget) {
        return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name);
    };
    QCOMPARE(name(choice(u"ON"_s)), u"DHCP ON"_s);
    QCOMPARE(name(choice(u"OFF"_s)), u"DHCP OFF"_s);
    for (const QString& text : {ADDRESS, SUBNETMASK, GATEWAY}) {
        QCOMPARE(name(m_bench->user.edit(text)), text);
    }
}

void InfrastructureDhcpLayoutTest::theTabKeyFollowsTheEye() {
    const QList<QWidget*> order{&choice(u"OFF"_s),
                                &m_bench->user.edit(ADDRESS),
                                &m_bench->user.edit(SUBNETMASK),
                                &m_bench->user.edit(GATEWAY),
                                &choice(u"Decision"_s),
                                &choice(u"Back"_s)};
    m_bench->page.activateWindow();
    order.first()->setFocus();
    for (QWidget* widget : order) {
        QCOMPARE(m_bench->page.focusWidget(), widget);
        QTest::keyClick(m_bench->page.focusWidget(), Qt::Key_Tab);
    }
}

const TestSubject registered = subjectWithWidgets<InfrastructureDhcpLayoutTest>();
#include "InfrastructureDhcpLayoutTest.moc"
