// SPDX-License-Identifier: MIT
#include "pages/network/ClWidgetAdhoc.h"
#include "pages/network/ClWidgetInfrastructureDhcp.h"
#include "tests/pages/PageBench.h"
#include "tests/support/TestSubject.h"

#include <QClipboard>
#include <QGuiApplication>

using namespace Qt::StringLiterals;

namespace {

struct stField {
    const char* form;
    const char* caption;
};

constexpr stField FIELDS[]{
    {"DHCP", "IP Address"},   {"DHCP", "Subnetmask"},   {"DHCP", "Default Gateway"},
    {"ad hoc", "IP Address"}, {"ad hoc", "Subnetmask"},
};

}  // namespace

/// The fields for addresses on both forms, as a user fills them in.
class AddressFieldsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theDotComesAndGoesWhileTyping_data() { addFields(); }
    void theDotComesAndGoesWhileTyping();
    void whatIsPastedIsJudgedAsAWhole_data() { addFields(); }
    void whatIsPastedIsJudgedAsAWhole();
    void aPasteReplacesTheSelection_data() { addFields(); }
    void aPasteReplacesTheSelection();
    void everyFieldHasAMemoryOfItsOwn();
    void theCamerasAddressIsTakenAsItIs_data() { addFields(); }
    void theCamerasAddressIsTakenAsItIs();

private:
    static void addFields();
    [[nodiscard]] QLineEdit& field() {
        QFETCH(const QString, form);
        QFETCH(const QString, caption);
        return form == "DHCP"_L1 ? m_dhcp.user.edit(caption) : m_adhoc.user.edit(caption);
    }
    /// Pastes @p text into the empty field.
    [[nodiscard]] QString pasted(const QString& text);

    PageBench<ClWidgetInfrastructureDhcp> m_dhcp;
    PageBench<ClWidgetAdhoc> m_adhoc;
};

void AddressFieldsTest::addFields() {
    QTest::addColumn<QString>("form");
    QTest::addColumn<QString>("caption");
    for (const stField& field : FIELDS) {
        QTest::addRow("%s, %s", field.form, field.caption)
            << QString::fromLatin1(field.form) << QString::fromLatin1(field.caption);
    }
}

QString AddressFieldsTest::pasted(const QString& text) {
    field().clear();
    QGuiApplication::clipboard()->setText(text);
    QTest::keyClick(&field(), Qt::Key_V, Qt::ControlModifier);
    return field().text();
}

void AddressFieldsTest::theDotComesAndGoesWhileTyping() {
    QLineEdit& edit = field();
    edit.clear();
    const auto type = [&edit](const QString& keys) {
        QTest::keyClicks(&edit, keys);
        return edit.text();
    };
    const auto backspace = [&edit] {
        QTest::keyClick(&edit, Qt::Key_Backspace);
        return edit.text();
    };
    QCOMPARE(type(u"19"_s), u"19"_s);
    QCOMPARE(type(u"2"_s), u"192."_s);
    QCOMPARE(edit.cursorPosition(), 4);
    QCOMPARE(backspace(), u"19"_s);
    QCOMPARE(type(u"2168"_s), u"192.168."_s);
    QCOMPARE(type(u".0"_s), u"192.168.0"_s);
    QCOMPARE(type(u"0"_s), u"192.168.0"_s);
    QCOMPARE(type(u".256"_s), u"192.168.0.25"_s);
    QCOMPARE(type(u"5.1"_s), u"192.168.0.255"_s);
    QCOMPARE(backspace(), u"192.168.0.25"_s);
    // A dot takes the digit before it along.
    for (const QString& expected :
         {u"192.168.0.2"_s, u"192.168.0."_s, u"192.168."_s, u"192.16"_s, u"192.1"_s}) {
        QCOMPARE(backspace(), expected);
    }
}

void AddressFieldsTest::whatIsPastedIsJudgedAsAWhole() {
    for (const QString& taken :
         {u"10.0.0.7"_s, u"255.255.255.0"_s, u"0.0.0.0"_s, u"10.0."_s, u"010.001.0.1"_s}) {
        QCOMPARE(pasted(taken), taken);
    }
    QCOMPARE(pasted(u"172"_s), u"172."_s);
    QCOMPARE(pasted(u"10.172"_s), u"10.172."_s);
    for (const QString& refused : {u"256.1.1.1"_s, u"1.2.3.4.5"_s, u"1..2"_s, u"00.1.1.1"_s,
                                   u"10.0.0.7/8"_s, u"camera.local"_s, u"fe80::1"_s}) {
        QCOMPARE(pasted(refused), QString());
    }
}

void AddressFieldsTest::aPasteReplacesTheSelection() {
    QLineEdit& edit = field();
    edit.setText(u"192.168.0.20"_s);
    edit.setSelection(8, 4);
    QGuiApplication::clipboard()->setText(u"7.9"_s);
    QTest::keyClick(&edit, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(edit.text(), u"192.168.7.9"_s);
    // What would not be an address leaves all as it is.
    edit.setSelection(8, 1);
    QGuiApplication::clipboard()->setText(u"256"_s);
    QTest::keyClick(&edit, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(edit.text(), u"192.168.7.9"_s);
}

void AddressFieldsTest::everyFieldHasAMemoryOfItsOwn() {
    for (const PageUser& user : {m_dhcp.user, m_adhoc.user}) {
        user.type(u"IP Address"_s, u"192"_s);
        user.type(u"Subnetmask"_s, u"2"_s);
        QCOMPARE(user.edit(u"IP Address"_s).text(), u"192."_s);
        QCOMPARE(user.edit(u"Subnetmask"_s).text(), u"2"_s);
    }
    m_dhcp.user.type(u"Default Gateway"_s, u"1"_s);
    QCOMPARE(m_dhcp.user.edit(u"Default Gateway"_s).text(), u"1"_s);
}

void AddressFieldsTest::theCamerasAddressIsTakenAsItIs() {
    QLineEdit& edit = field();
    QTest::keyClicks(&edit, u"192"_s);
    for (const QString& value : {u"255.255.255.255"_s, u"0.0.0.0"_s, u"100.200.100.200"_s}) {
        for (const QUuid& command :
             {USB_RES_NUBO_CMD_GET_INFRA_ADDRESS, USB_RES_NUBO_CMD_GET_INFRA_SUBNETMASK,
              USB_RES_NUBO_CMD_GET_INFRA_GATEWAY, USB_RES_NUBO_CMD_GET_ADHOC_ADDRESS,
              USB_RES_NUBO_CMD_GET_ADHOC_SUBNETMASK}) {
            m_dhcp.answer(command, value);
            m_adhoc.answer(command, value);
        }
        QCOMPARE(edit.text(), value);
    }
}

const TestSubject registered = subjectWithWidgets<AddressFieldsTest>();
#include "AddressFieldsTest.moc"
