// SPDX-License-Identifier: MIT
#include "pages/ClDialogAuthorization.h"
#include "pages/ClDialogAutoPoweroff.h"
#include "pages/ClDialogAutoWifiOff.h"
#include "pages/ClDialogCalendar.h"
#include "pages/ClDialogCameraName.h"
#include "pages/ClDialogGps.h"
#include "pages/ClDialogImageQuarity.h"
#include "pages/ClDialogInterval.h"
#include "pages/ClDialogLed.h"
#include "pages/ClDialogTime.h"
#include "pages/ClDialogTimezone.h"
#include "pages/ClDialogWifiCountry.h"
#include "tests/ui/TaggingTranslator.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

struct stDialog {
    const char* name;
    std::unique_ptr<ClDialogBase> (*create)();
    QVariantList params;
    const char* focus;    ///< the accessible name of the control that has the keyboard first
    const char* context;  ///< where the texts are looked up
};

template <class Dialog>
std::unique_ptr<ClDialogBase> create() {
    return std::make_unique<Dialog>();
}

constexpr const char* PAGE = "ClWidgetBasicSetting";

const QList<stDialog> DIALOGS{
    {"camera name", create<ClDialogCameraName>, {u"NuBo"_s}, "Set the favarite camera name", PAGE},
    {"authorization", create<ClDialogAuthorization>, {false}, "Not use authorization", PAGE},
    {"interval", create<ClDialogInterval>, {true, 5U, 7U}, "Use interval timer", PAGE},
    {"auto power off",
     create<ClDialogAutoPoweroff>,
     {60U},
     "Time of auto power off",
     "ClDialogAutoPoweroff"},
    {"auto Wi-Fi off",
     create<ClDialogAutoWifiOff>,
     {60U},
     "Time of auto Wi-Fi off",
     "ClDialogAutoWifiOff"},
    {"LED", create<ClDialogLed>, {false}, "Not light", "ClDialogLed"},
    {"GPS", create<ClDialogGps>, {true, true, true, 2U}, "Use GPS", "ClDialogGps"},
    {"time zone", create<ClDialogTimezone>, {9U}, "Setting time zone", "ClDialogTimezone"},
    {"image quality",
     create<ClDialogImageQuarity>,
     {2U},
     "Setting contrast",
     "ClDialogImageQuarity"},
    {"Wi-Fi country", create<ClDialogWifiCountry>, {false, 2U}, "Setting Wi-Fi country", PAGE},
    {"time", create<ClDialogTime>, {QDateTime(QDate(2026, 11, 21), QTime(13, 4, 5))}, "Year", PAGE},
    {"calendar", create<ClDialogCalendar>, {QDate(2026, 11, 21)}, "Calendar", PAGE},
};

const QStringList SEPARATORS{u"/"_s, u":"_s};

/// What a text shows is no word of a language.
bool isUntranslated(const QString& text) {
    static const QRegularExpression range(u"^\\(.* - .*\\)$"_s);
    return text.isEmpty() || SEPARATORS.contains(text) || range.match(text).hasMatch();
}

// A combo box shows its text as the name and tells its own name by a relation.
QString nameOf(QWidget* widget) {
    if (qobject_cast<QComboBox*>(widget) != nullptr) {
        return widget->accessibleName();
    }
    return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
}

/// The controls that Tab stops at, in its order.
QList<QWidget*> tabStops(QWidget& dialog) {
    QList<QWidget*> stops;
    QWidget* const first = dialog.focusWidget();
    QWidget* stop = first;
    do {
        stops.append(stop);
        QTest::keyClick(stop, Qt::Key_Tab);
        stop = dialog.focusWidget();
    } while (stop != first && stops.size() < 30);
    return stops;
}

}  // namespace

/// What holds for every dialog of the basic settings: keyboard, screen reader, texts and room.
class SettingDialogsLayoutTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setApplicationName(u"Test program"_s); }
    void init();
    void cleanup() { m_dialog.reset(); }

    void bearsTheNameOfTheApplication_data() { addDialogs(); }
    void bearsTheNameOfTheApplication();
    void theFirstControlHasTheKeyboard_data() { addDialogs(); }
    void theFirstControlHasTheKeyboard();
    void enterAccepts_data() { addDialogs(); }
    void enterAccepts();
    void escapeDeclines_data() { addDialogs(); }
    void escapeDeclines();
    void tabFollowsTheEye_data() { addDialogs(); }
    void tabFollowsTheEye();
    void everyControlHasAName_data() { addDialogs(); }
    void everyControlHasAName();
    void radioButtonsAndTimesAreAnnouncedAsGroups_data() { addDialogs(); }
    void radioButtonsAndTimesAreAnnouncedAsGroups();
    void textsAreLookedUpInTheirContext_data() { addDialogs(); }
    void textsAreLookedUpInTheirContext();
    void nothingIsCutOff_data() { addDialogs(); }
    void nothingIsCutOff();

private:
    static void addDialogs();
    void open();

    stDialog m_row{};
    std::unique_ptr<ClDialogBase> m_dialog;
};

void SettingDialogsLayoutTest::addDialogs() {
    QTest::addColumn<int>("index");
    for (int i = 0; i < DIALOGS.size(); ++i) {
        QTest::newRow(DIALOGS[i].name) << i;
    }
}

void SettingDialogsLayoutTest::init() {
    QFETCH(int, index);
    m_row = DIALOGS[index];
    open();
}

void SettingDialogsLayoutTest::open() {
    m_dialog = m_row.create();
    m_dialog->setParam(m_row.params);
    m_dialog->show();
    QVERIFY(QTest::qWaitForWindowActive(m_dialog.get()));
}

void SettingDialogsLayoutTest::bearsTheNameOfTheApplication() {
    QCOMPARE(m_dialog->windowTitle(), u"Test program"_s);
}

void SettingDialogsLayoutTest::theFirstControlHasTheKeyboard() {
    QCOMPARE(nameOf(m_dialog->focusWidget()), QString::fromLatin1(m_row.focus));
}

void SettingDialogsLayoutTest::enterAccepts() {
    QTest::keyClick(m_dialog->focusWidget(), Qt::Key_Return);
    QVERIFY(m_dialog->isHidden());
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
}

void SettingDialogsLayoutTest::escapeDeclines() {
    m_dialog->setResult(QDialog::Accepted);
    QTest::keyClick(m_dialog->focusWidget(), Qt::Key_Escape);
    QVERIFY(m_dialog->isHidden());
    QCOMPARE(m_dialog->result(), int(QDialog::Rejected));
}

void SettingDialogsLayoutTest::tabFollowsTheEye() {
    const QList<QWidget*> stops = tabStops(*m_dialog);
    QVERIFY(stops.size() >= 3);  // a control, "OK" and "Cancel" at least
    QRect before;
    for (QWidget* const stop : stops) {
        const QRect place(stop->mapTo(m_dialog.get(), QPoint()), stop->size());
        const bool isBelow = place.top() > before.bottom();
        const bool isBeside = place.left() > before.right() && place.bottom() > before.top();
        QVERIFY2(before.isNull() || isBelow || isBeside, qPrintable(nameOf(stop)));
        before = place;
    }
}

void SettingDialogsLayoutTest::everyControlHasAName() {
    QStringList names;
    for (QWidget* const stop : tabStops(*m_dialog)) {
        names.append(nameOf(stop));
        QVERIFY2(!names.last().isEmpty(), stop->metaObject()->className());
    }
    QCOMPARE(names.mid(names.size() - 2), (QStringList{u"OK"_s, u"Cancel"_s}));
}

void SettingDialogsLayoutTest::radioButtonsAndTimesAreAnnouncedAsGroups() {
    QWidgetList members;
    for (QRadioButton* const button : m_dialog->findChildren<QRadioButton*>()) {
        members.append(button);
    }
    for (QSpinBox* const box : m_dialog->findChildren<QSpinBox*>()) {
        members.append(box);
    }
    for (QWidget* const member : std::as_const(members)) {
        if (!member->isVisible()) {
            continue;  // the calendar's, for the year
        }
        const QAccessibleInterface* const group =
            QAccessible::queryAccessibleInterface(member)->parent();
        QCOMPARE(group->role(), QAccessible::Grouping);
        QVERIFY(!group->text(QAccessible::Name).isEmpty());
    }
}

void SettingDialogsLayoutTest::textsAreLookedUpInTheirContext() {
    const TaggingTranslator translator;
    open();
    QStringList texts;
    for (const QLabel* const label : m_dialog->findChildren<QLabel*>()) {
        texts.append(label->text());
    }
    const auto* const row = m_dialog->findChild<QDialogButtonBox*>();
    for (QAbstractButton* const button : m_dialog->findChildren<QAbstractButton*>()) {
        if (button->inherits("QToolButton") || row->isAncestorOf(button)) {
            continue;  // those of the calendar and of the base
        }
        texts.append(button->text());
    }
    for (const QComboBox* const box : m_dialog->findChildren<QComboBox*>()) {
        for (int i = 0; i < box->count(); ++i) {
            texts.append(box->itemText(i));
        }
    }
    for (const QString& text : std::as_const(texts)) {
        QVERIFY2(isUntranslated(text) || text.startsWith(QString::fromLatin1(m_row.context) + u'|'),
                 qPrintable(text));
    }
}

void SettingDialogsLayoutTest::nothingIsCutOff() {
    // Texts far longer than any language's, wider than what the toolkit grants a new window.
    const TaggingTranslator translator;
    open();
    for (QWidget* const widget : m_dialog->findChildren<QWidget*>()) {
        const bool isText = qobject_cast<QLabel*>(widget) != nullptr ||
                            qobject_cast<QAbstractButton*>(widget) != nullptr ||
                            qobject_cast<QComboBox*>(widget) != nullptr;
        if (isText && widget->isVisible()) {
            const QRect place(widget->mapTo(m_dialog.get(), QPoint()), widget->size());
            QVERIFY(m_dialog->rect().contains(place));
            QVERIFY2(widget->width() >= widget->sizeHint().width() &&
                         widget->height() >= widget->sizeHint().height(),
                     qPrintable(nameOf(widget)));
        }
    }
    for (const QLineEdit* const edit : m_dialog->findChildren<QLineEdit*>()) {
        QVERIFY(edit->width() > edit->fontMetrics().horizontalAdvance(edit->displayText()));
    }
    for (const QComboBox* const box : m_dialog->findChildren<QComboBox*>()) {
        const QRect text =
            box->fontMetrics().boundingRect({}, Qt::TextExpandTabs, box->currentText());
        QVERIFY(box->height() > text.height());
    }
}

QTEST_MAIN(SettingDialogsLayoutTest)
#include "SettingDialogsLayoutTest.moc"
