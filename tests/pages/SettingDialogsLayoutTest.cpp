// SPDX-License-Identifier: MIT
#include "pages/basic/BasicSettingRows.h"
#include "tests/pages/Dialogs.h"
#include "tests/support/TestSubject.h"
#include "tests/ui/TaggingTranslator.h"
#include "ui/ClDialogBase.h"

#include <QAccessible>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QRadioButton>
#include <QSpinBox>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QStringList SEPARATORS{u"/"_s, u":"_s};

/// What a text shows is no word of a language.
bool isUntranslated(const QString& text) {
    static const QRegularExpression range(u"^\\(.* - .*\\)$"_s);
    return text.isEmpty() || SEPARATORS.contains(text) || range.match(text).hasMatch();
}

}  // namespace

/// What holds for every dialog: screen reader, texts and room.
class SettingDialogsLayoutTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup() { m_dialog.reset(); }

    void bearsTheNameOfTheApplication_data() { addDialogs(); }
    void bearsTheNameOfTheApplication();
    void everyControlHasAName_data() { addDialogs(); }
    void everyControlHasAName();
    void choicesAndTimesAreAnnouncedAsGroups_data() { addDialogs(); }
    void choicesAndTimesAreAnnouncedAsGroups();
    void textsAreLookedUpInTheirContext_data() { addSettingDialogs(); }
    void textsAreLookedUpInTheirContext();
    void hasTheMarginsAndTheSpacingOfAllDialogs_data() { addSettingDialogs(); }
    void hasTheMarginsAndTheSpacingOfAllDialogs();
    void nothingIsCutOff_data() { addDialogs(); }
    void nothingIsCutOff();

private:
    stDialog m_row{};
    std::unique_ptr<QDialog> m_dialog;
};

void SettingDialogsLayoutTest::initTestCase() {
    QCoreApplication::setApplicationName(u"Test program"_s);
    // A dialog that the basic settings gain has to be among those that are looked at here.
    QStringList classes;
    for (const stDialog& row : dialogs()) {
        classes.append(QString::fromLatin1(row.create()->metaObject()->className()));
    }
    for (const stBasicSettingRow& row : basicSettingRows()) {
        const std::unique_ptr<ClDialogBase> dialog = row.createDialog(nullptr);
        const char* name = dialog->metaObject()->className();
        QVERIFY2(classes.contains(QString::fromLatin1(name)), name);
    }
}

void SettingDialogsLayoutTest::init() {
    QFETCH(int, index);
    m_row = dialogs()[index];
    m_dialog = openDialog(m_row);
}

void SettingDialogsLayoutTest::bearsTheNameOfTheApplication() {
    QCOMPARE(m_dialog->windowTitle(), u"Test program"_s);
}

void SettingDialogsLayoutTest::everyControlHasAName() {
    QStringList names;
    for (QWidget* const stop : tabStops(*m_dialog)) {
        names.append(nameOf(stop));
        QVERIFY2(!names.last().isEmpty(), stop->metaObject()->className());
    }
    const bool isBox = m_row.context == nullptr;
    QVERIFY(isBox || names.size() > m_row.buttons.size());
    QCOMPARE(names.last(m_row.buttons.size()), m_row.buttons);
}

void SettingDialogsLayoutTest::choicesAndTimesAreAnnouncedAsGroups() {
    QWidgetList members;
    for (QRadioButton* const button : m_dialog->findChildren<QRadioButton*>()) {
        members.append(button);
    }
    for (QSpinBox* const box : m_dialog->findChildren<QSpinBox*>()) {
        members.append(box);
    }
    for (QComboBox* const box : m_dialog->findChildren<QComboBox*>()) {
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
    m_dialog = openDialog(m_row);
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

void SettingDialogsLayoutTest::hasTheMarginsAndTheSpacingOfAllDialogs() {
    QCOMPARE(m_dialog->layout()->contentsMargins(), QMargins(16, 16, 16, 16));
    QCOMPARE(m_dialog->layout()->spacing(), 14);
}

void SettingDialogsLayoutTest::nothingIsCutOff() {
    // Texts far longer than any language's, wider than what the toolkit grants a new window.
    const TaggingTranslator translator;
    m_dialog = openDialog(m_row);
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

const TestSubject registered = subjectWithWidgets<SettingDialogsLayoutTest>();
#include "SettingDialogsLayoutTest.moc"
