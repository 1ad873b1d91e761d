// SPDX-License-Identifier: MIT
#include "pages/network/ClWidgetAdhoc.h"
#include "pages/network/ClWidgetInfrastructureDhcp.h"
#include "tests/pages/PageBench.h"
#include "tests/support/TestSubject.h"

#include <QAccessible>
#include <QApplication>

#include <array>
#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// A value of the camera on a form, and the field in which the user can change it.
struct stItem {
    QUuid request;
    QUuid answer;
    QVariant value;  ///< that the camera holds
    QUuid write = {};
    QString caption = {};  ///< of its field; without one there is none
    int y = 0;             ///< of its field
    QString typed = {};    ///< another value, for the field

    [[nodiscard]] QString sent() const { return getUsbCommand(write) + u" QString "_s + typed; }
};

struct stForm {
    const char* name;
    /// Creates the form, which appends to @p left where it leads.
    std::unique_ptr<ClWidgetAddressForm> (*create)(QList<int>& left);
    QList<stItem> items;    ///< in the order in which they are read
    QString controlBefore;  ///< that has the focus before the fields
    int buttonsY;

    [[nodiscard]] QList<stItem> fields() const {
        QList<stItem> fields = items;
        fields.removeIf([](const stItem& item) { return item.caption.isEmpty(); });
        return fields;
    }
    /// What the form sends.
    [[nodiscard]] QList<QUuid> commands() const {
        QList<QUuid> commands;
        for (const stItem& item : items) {
            commands << item.request << item.write;
        }
        commands.removeAll(QUuid());
        return commands;
    }
};

template <class Form, auto LEAVES>
std::unique_ptr<ClWidgetAddressForm> create(QList<int>& left) {
    auto form = std::make_unique<Form>(startFresh());
    QObject::connect(form.get(), LEAVES, form.get(), [&left](int index) { left.append(index); });
    return form;
}

const QString ADDRESS = u"IP Address"_s;
const QString SUBNETMASK = u"Subnetmask"_s;
const QString GATEWAY = u"Default Gateway"_s;

const std::array<stForm, 2> FORMS{{
    {"DHCP",
     create<ClWidgetInfrastructureDhcp, &ClWidgetInfrastructureDhcp::sigChangePage>,
     {{USB_REQ_NUBO_CMD_GET_INFRA_USE_DHCP, USB_RES_NUBO_CMD_GET_INFRA_USE_DHCP, false,
       USB_NUBO_CMD_SET_INFRA_USE_DHCP},
      {USB_REQ_NUBO_CMD_GET_INFRA_ADDRESS, USB_RES_NUBO_CMD_GET_INFRA_ADDRESS, u"192.168.0.20"_s,
       USB_NUBO_CMD_SET_INFRA_ADDRESS, ADDRESS, 190, u"10.0.0.7"_s},
      {USB_REQ_NUBO_CMD_GET_INFRA_SUBNETMASK, USB_RES_NUBO_CMD_GET_INFRA_SUBNETMASK,
       u"255.255.255.0"_s, USB_NUBO_CMD_SET_INFRA_SUBNETMASK, SUBNETMASK, 229, u"255.0.0.0"_s},
      {USB_REQ_NUBO_CMD_GET_INFRA_GATEWAY, USB_RES_NUBO_CMD_GET_INFRA_GATEWAY, u"192.168.0.1"_s,
       USB_NUBO_CMD_SET_INFRA_GATEWAY, GATEWAY, 267, u"10.0.0.1"_s}},
     u"OFF"_s,
     423},
    {"ad hoc",
     create<ClWidgetAdhoc, &ClWidgetAdhoc::sigEndSetting>,
     {{USB_REQ_NUBO_CMD_GET_SSID, USB_RES_NUBO_CMD_GET_SSID, u"NuBo-0001"_s},
      {USB_REQ_NUBO_CMD_GET_ADHOCKEY, USB_RES_NUBO_CMD_GET_ADHOCKEY, u"simulated"_s},
      {USB_REQ_NUBO_CMD_GET_ADHOC_ADDRESS, USB_RES_NUBO_CMD_GET_ADHOC_ADDRESS, u"192.168.10.1"_s,
       USB_NUBO_CMD_SET_ADHOC_ADDRESS, ADDRESS, 211, u"10.0.0.7"_s},
      {USB_REQ_NUBO_CMD_GET_ADHOC_SUBNETMASK, USB_RES_NUBO_CMD_GET_ADHOC_SUBNETMASK,
       u"255.255.255.0"_s, USB_NUBO_CMD_SET_ADHOC_SUBNETMASK, SUBNETMASK, 250, u"255.0.0.0"_s}},
     u"Connect Adhoc on startup"_s,
     424},
}};

}  // namespace

/// What both forms of addresses do alike, on each of them.
class AddressFormTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data();
    void initTestCase() { QCoreApplication::setApplicationName(u"Test program"_s); }
    void init();
    void cleanup() { m_bench.reset(); }

    void theFieldsStandInAColumn();
    void theButtonsStandAtTheBottom();
    void screenReadersNameEveryField();
    void theTabKeyFollowsTheEye();
    void valuesAreReadInAChain();
    void pollingReadsToo();
    void backLeavesWithoutWriting();
    void returnIsDecision();
    void nothingChangedLeavesAtOnce();
    void whatChangedIsWritten();
    void theFormIsLeftWhenAllWritesHaveSucceeded();
    void aFailedWriteKeepsTheFormAndIsWrittenAgain();
    void writingDoesNotChangeWhatWasRead();
    void settingsThatAreNotValidAreNotWritten_data();
    void settingsThatAreNotValidAreNotWritten();
    void aFailureIsShownEachTime();
    void failuresOfOneDecisionAreShownInTurn();
    void othersMessagesAreIgnored();

private:
    void readFromCamera();
    /// Types the other values of @p fields. @return what "Decision" sends for them
    QStringList change(const QList<stItem>& fields);
    void decide() { m_bench->user.click(u"Decision"_s); }

    const stForm* m_form = nullptr;
    std::optional<PageBench<ClWidgetAddressForm>> m_bench;
    QList<int> m_left;
};

void AddressFormTest::initTestCase_data() {
    QTest::addColumn<const stForm*>("form");
    for (const stForm& form : FORMS) {
        QTest::newRow(form.name) << &form;
    }
}

void AddressFormTest::init() {
    QFETCH_GLOBAL(const stForm*, form);
    m_form = form;
    m_left.clear();
    m_bench.emplace(form->create(m_left));
}

void AddressFormTest::readFromCamera() {
    for (const stItem& item : m_form->items) {
        m_bench->answer(item.answer, item.value);
    }
    m_bench->takeSent();
}

QStringList AddressFormTest::change(const QList<stItem>& fields) {
    QStringList sent;
    for (const stItem& field : fields) {
        m_bench->user.type(field.caption, field.typed);
        sent.append(field.sent());
    }
    return sent;
}

void AddressFormTest::theFieldsStandInAColumn() {
    for (const stItem& field : m_form->fields()) {
        const QLabel& caption = m_bench->user.label(field.caption);
        QCOMPARE(caption.pos(), QPoint(227 - caption.sizeHint().width(), field.y));
        const QLineEdit& edit = m_bench->user.edit(field.caption);
        QCOMPARE(edit.pos(), QPoint(264, field.y));
        QCOMPARE(edit.width(), 199);
        QCOMPARE(edit.minimumWidth(), 199);
        QCOMPARE(edit.maximumWidth(), 199);
        // The caption and what is typed stand on one line.
        QCOMPARE(caption.geometry().center().y(), edit.geometry().center().y());
    }
}

void AddressFormTest::theButtonsStandAtTheBottom() {
    const QAbstractButton& back = m_bench->user.button(u"Back"_s);
    const QWidget* box = back.parentWidget();
    QCOMPARE(box->pos(), QPoint(585 - box->sizeHint().width(), m_form->buttonsY));
    QCOMPARE(back.minimumSize(), QSize(133, 30));
    QCOMPARE(m_bench->user.button(u"Decision"_s).minimumSize(), QSize(133, 30));
    QVERIFY(m_bench->page.rect().contains(box->geometry()));
}

void AddressFormTest::screenReadersNameEveryField() {
    for (const stItem& field : m_form->fields()) {
        auto* edit = QAccessible::queryAccessibleInterface(&m_bench->user.edit(field.caption));
        QCOMPARE(edit->text(QAccessible::Name), field.caption);
    }
}

void AddressFormTest::theTabKeyFollowsTheEye() {
    QList<QWidget*> order{&m_bench->user.button(m_form->controlBefore)};
    for (const stItem& field : m_form->fields()) {
        order.append(&m_bench->user.edit(field.caption));
    }
    order << &m_bench->user.button(u"Decision"_s) << &m_bench->user.button(u"Back"_s);
    m_bench->page.activateWindow();
    order.first()->setFocus();
    for (QWidget* widget : std::as_const(order)) {
        QCOMPARE(m_bench->page.focusWidget(), widget);
        QTest::keyClick(m_bench->page.focusWidget(), Qt::Key_Tab);
    }
}

void AddressFormTest::valuesAreReadInAChain() {
    m_bench->page.showInit(false);
    for (const stItem& item : m_form->items) {
        QCOMPARE(m_bench->takeSent(), QStringList{getUsbCommand(item.request)});
        m_bench->answer(item.answer, item.value);
        if (!item.caption.isEmpty()) {
            QCOMPARE(m_bench->user.edit(item.caption).text(), item.value.toString());
        }
    }
    QCOMPARE(m_bench->takeSent(), QStringList());
}

void AddressFormTest::pollingReadsToo() {
    m_bench->page.showInit(true);
    QCOMPARE(m_bench->takeSent(), QStringList{getUsbCommand(m_form->items.first().request)});
}

void AddressFormTest::backLeavesWithoutWriting() {
    readFromCamera();
    change(m_form->fields());
    m_bench->user.click(u"Back"_s);
    QCOMPARE(m_left, QList<int>{0});
    QCOMPARE(m_bench->takeSent(), QStringList());
}

void AddressFormTest::returnIsDecision() {
    readFromCamera();
    const QStringList sent = change(m_form->fields().first(1));
    for (const stItem& field : m_form->fields()) {
        QTest::keyClick(&m_bench->user.edit(field.caption), Qt::Key_Return);
        QCOMPARE(m_bench->takeSent(), sent);
    }
}

void AddressFormTest::nothingChangedLeavesAtOnce() {
    readFromCamera();
    decide();
    QCOMPARE(m_left, QList<int>{0});
    QCOMPARE(m_bench->takeSent(), QStringList());
}

void AddressFormTest::whatChangedIsWritten() {
    const QList<stItem> fields = m_form->fields();
    // Each set of fields: a bit for each of them.
    for (unsigned int chosen = 1; chosen < 1U << fields.size(); ++chosen) {
        QList<stItem> changed;
        for (qsizetype index = 0; index < fields.size(); ++index) {
            if ((chosen >> index & 1U) != 0) {
                changed.append(fields[index]);
            }
        }
        m_left.clear();
        readFromCamera();
        const QStringList sent = change(changed);
        decide();
        QCOMPARE(m_bench->takeSent(), sent);
        for (const stItem& field : std::as_const(changed)) {
            QVERIFY(m_left.isEmpty());
            m_bench->succeed(field.write);
        }
        QCOMPARE(m_left, QList<int>{0});
    }
    QVERIFY(m_bench->boxes.boxes().isEmpty());
}

void AddressFormTest::theFormIsLeftWhenAllWritesHaveSucceeded() {
    readFromCamera();
    const QList<stItem> fields = m_form->fields();
    change({fields.first(), fields.last()});
    decide();
    m_bench->succeed(fields.last().write);
    // Whatever else succeeds in between is nothing that the form has waited for.
    m_bench->succeed(USB_NUBO_CMD_SET_INFRA_SSID);
    m_bench->succeed(fields.first().request);
    m_bench->succeed(QUuid());
    QVERIFY(m_left.isEmpty());
    m_bench->succeed(fields.first().write);
    QCOMPARE(m_left, QList<int>{0});
}

void AddressFormTest::aFailedWriteKeepsTheFormAndIsWrittenAgain() {
    const QList<stItem> fields = m_form->fields();
    const QList<stItem> changed{fields.first(), fields.last()};
    for (const stItem& failing : changed) {
        readFromCamera();
        const QStringList sent = change(changed);
        decide();
        QCOMPARE(m_bench->takeSent(), sent);
        for (const stItem& field : changed) {
            m_bench->respond(field.write, field.write == failing.write ? 0xFFFC : 0);
        }
        QCOMPARE(m_bench->boxes.texts(), QStringList{u"Command error, version up"_s});
        QVERIFY(m_left.isEmpty());
        QCOMPARE(m_bench->user.edit(failing.caption).text(), failing.typed);

        decide();
        QCOMPARE(m_bench->takeSent(), sent);
        for (const stItem& field : changed) {
            QVERIFY(m_left.isEmpty());
            m_bench->succeed(field.write);
        }
        QCOMPARE(m_left, QList<int>{0});
        m_left.clear();
        m_bench->boxes.forgetBoxes();
    }
}

void AddressFormTest::writingDoesNotChangeWhatWasRead() {
    readFromCamera();
    const stItem field = m_form->fields().first();
    const QStringList sent = change({field});
    for (int decision = 0; decision < 2; ++decision) {
        decide();
        QCOMPARE(m_bench->takeSent(), sent);
        m_bench->succeed(field.write);
    }

    m_bench->answer(field.answer, field.typed);
    m_bench->takeSent();
    m_left.clear();
    decide();
    QCOMPARE(m_bench->takeSent(), QStringList());
    QCOMPARE(m_left, QList<int>{0});
}

void AddressFormTest::settingsThatAreNotValidAreNotWritten_data() {
    QTest::addColumn<bool>("isMask");
    QTest::addColumn<QString>("text");
    for (const char* text : {"", "10.0.0", "10.0.0.", "10.0.0.0", "10.0.0.255", "10.0.0.07"}) {
        QTest::addRow("address %s", text) << false << QString::fromLatin1(text);
    }
    for (const char* text : {"", "255.255.255.", "255.255.240.0", "255.0.255.0", "10.0.0.1"}) {
        QTest::addRow("mask %s", text) << true << QString::fromLatin1(text);
    }
}

void AddressFormTest::settingsThatAreNotValidAreNotWritten() {
    QFETCH(const bool, isMask);
    QFETCH(const QString, text);
    const stModalBox box{
        u"Test program"_s, u"Not valid settings of network"_s, {u"OK"_s}, &m_bench->page};
    for (const stItem& field : m_form->fields()) {
        if ((field.caption == SUBNETMASK) == isMask) {
            readFromCamera();
            m_bench->user.type(field.caption, text);
            QCOMPARE(m_bench->user.edit(field.caption).text(), text);
            m_bench->boxes.forgetBoxes();
            decide();
            QCOMPARE(m_bench->boxes.boxes(), QList<stModalBox>{box});
        }
    }
    QCOMPARE(m_bench->takeSent(), QStringList());
    QVERIFY(m_left.isEmpty());
}

void AddressFormTest::aFailureIsShownEachTime() {
    for (const QUuid& command : m_form->commands()) {
        m_bench->boxes.forgetBoxes();
        m_bench->failInManyWays(command);
        QVERIFY2(m_bench->boxes.texts() == FAILURE_TEXTS, qPrintable(getUsbCommand(command)));
    }
    QVERIFY(!g_bIsShowError);
    QVERIFY(m_left.isEmpty());
    QCOMPARE(m_bench->takeSent(), QStringList());
}

void AddressFormTest::failuresOfOneDecisionAreShownInTurn() {
    const QList<stItem> fields = m_form->fields();
    m_bench->boxes.setAction([this, &fields](QWidget& box) {
        if (m_bench->boxes.boxes().size() == 1) {
            m_bench->fail(fields[1].write, 0xEF03);
            m_bench->respond(fields.last().write, 0xFFFB);
            QCOMPARE(QApplication::activeModalWidget(), &box);
        }
        acceptBox(box);
    });
    m_bench->respond(fields.first().write, 0xFFFC);
    QCOMPARE(m_bench->boxes.texts(),
             (QStringList{u"Command error, version up"_s, u"Exec failed, unknown error"_s,
                          u"Parameter setting failed"_s}));
}

void AddressFormTest::othersMessagesAreIgnored() {
    QList<QUuid> commands{USB_REQ_NUBO_CMD_GET_INFRA_SSID, USB_NUBO_CMD_SET_WIFI_MODE,
                          USB_NUBO_CMD_SET_WIFI_ONOFF, QUuid()};
    for (const stForm& other : FORMS) {
        if (&other != m_form) {
            commands.append(other.commands());
            for (const stItem& item : other.items) {
                m_bench->answer(item.answer, item.value);
            }
        }
    }
    for (const QUuid& command : std::as_const(commands)) {
        m_bench->endInEveryWay(command);
    }
    m_bench->page.slotReceiveCommand({});
    QVERIFY(m_bench->boxes.boxes().isEmpty());
    QVERIFY(m_left.isEmpty());
    QCOMPARE(m_bench->takeSent(), QStringList());
    for (const stItem& field : m_form->fields()) {
        QCOMPARE(m_bench->user.edit(field.caption).text(), QString());
    }
}

const TestSubject registered = subjectWithWidgets<AddressFormTest>();
#include "AddressFormTest.moc"
