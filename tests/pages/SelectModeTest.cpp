// SPDX-License-Identifier: MIT
#include "pages/ClWidgetSelectMode.h"
#include "tests/support/TestSubject.h"
#include "ui/Artwork.h"
#include "ui/ClButtonMode.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>

#include <array>
#include <limits>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

struct stLook {
    const char* caption;
    const char* picture;
};

/// Of the buttons, from left to right.
constexpr std::array LOOKS{
    stLook{"Camera state", ":/img/button_camera"},
    stLook{"Network setting", ":/img/button_network"},
    stLook{"Basic setting", ":/img/button_setting"},
    stLook{"Stream setting", ":/img/button_stream"},
    stLook{"Help", ":/img/button_help"},
};

}  // namespace

/// The bar of five buttons that choose the page.
class SelectModeTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void fiveButtonsStandInARow();
    void aButtonHasItsCaptionAndPicture_data() { addModes(); }
    void aButtonHasItsCaptionAndPicture();
    void theBarStartsDisabled();
    void activatingAModeChecksItsButtonAndEnablesAll_data() { addModes(); }
    void activatingAModeChecksItsButtonAndEnablesAll();
    void noModeDisablesAllButtons();
    void aModeThatStandsIsAnnouncedAgain_data();
    void aModeThatStandsIsAnnouncedAgain();
    void anUnknownModeChangesNothing_data();
    void anUnknownModeChangesNothing();
    void aClickAnnouncesTheMode_data() { addModes(); }
    void aClickAnnouncesTheMode();
    void aClickOnTheCheckedButtonAnnouncesItsModeAgain();
    void aDisabledButtonCannotBeClicked();
    void aSenderThatIsNoButtonMeansNoMode();
    void theBarSendsNothingToTheCamera();

private:
    static void addModes();
    [[nodiscard]] QList<int> announced() const;
    [[nodiscard]] QList<bool> enabled() const;
    [[nodiscard]] int checkedMode() const;
    void click(int mode) { QTest::mouseClick(m_buttons.at(mode - 1), Qt::LeftButton); }

    std::unique_ptr<ClWidgetSelectMode> m_bar;
    std::unique_ptr<QSignalSpy> m_modes;
    QList<ClButtonMode*> m_buttons;
};

void SelectModeTest::init() {
    m_bar = std::make_unique<ClWidgetSelectMode>(nullptr);
    m_modes = std::make_unique<QSignalSpy>(m_bar.get(), &ClWidgetSelectMode::sigChangeMode);
    m_buttons = m_bar->findChildren<ClButtonMode*>();
    QCOMPARE(m_buttons.size(), 5);
    m_bar->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_bar.get()));
}

void SelectModeTest::cleanup() {
    m_modes.reset();
    m_bar.reset();
}

void SelectModeTest::addModes() {
    QTest::addColumn<int>("mode");
    for (std::size_t index = 0; index < LOOKS.size(); ++index) {
        QTest::newRow(LOOKS[index].caption) << static_cast<int>(index + 1);
    }
}

QList<int> SelectModeTest::announced() const {
    QList<int> modes;
    for (const QVariantList& arguments : std::as_const(*m_modes)) {
        modes.append(arguments.first().toInt());
    }
    return modes;
}

QList<bool> SelectModeTest::enabled() const {
    QList<bool> enabled;
    for (const ClButtonMode* button : m_buttons) {
        enabled.append(button->isEnabled());
    }
    return enabled;
}

int SelectModeTest::checkedMode() const {
    const auto* group = m_bar->findChild<QButtonGroup*>();
    return static_cast<int>(m_buttons.indexOf(qobject_cast<ClButtonMode*>(group->checkedButton())) +
                            1);
}

void SelectModeTest::fiveButtonsStandInARow() {
    QCOMPARE(m_bar->size(), QSize(600, 84));
    const auto* layout = qobject_cast<QHBoxLayout*>(m_bar->layout());
    QVERIFY(layout != nullptr);
    QCOMPARE(layout->contentsMargins(), QMargins(20, 0, 20, 0));
    QCOMPARE(layout->spacing(), 0);
    for (int index = 0; index < 5; ++index) {
        QCOMPARE(m_buttons.at(index)->geometry(), QRect(20 + 112 * index, 0, 112, 84));
        QCOMPARE(layout->itemAt(index)->alignment(), Qt::Alignment());
        QCOMPARE(layout->stretch(index), 0);
    }
    const auto* group = m_bar->findChild<QButtonGroup*>();
    QCOMPARE(group->parent(), m_bar.get());
    QVERIFY(group->exclusive());
    QCOMPARE(group->buttons(), QList<QAbstractButton*>(m_buttons.begin(), m_buttons.end()));
}

void SelectModeTest::aButtonHasItsCaptionAndPicture() {
    QFETCH(int, mode);
    const stLook& look = LOOKS[static_cast<std::size_t>(mode - 1)];
    ClButtonMode* button = m_buttons.at(mode - 1);
    QCOMPARE(button->findChild<QLabel*>()->text(), QLatin1String(look.caption));

    // An idle button paints nothing but its picture.
    QImage canvas(button->size(), QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    button->render(&canvas, QPoint(), QRegion(), QWidget::RenderFlags());
    const QImage expected = artwork(QLatin1String(look.picture), 1).toImage();
    QVERIFY(!expected.isNull());
    QCOMPARE(canvas.copy(26, 7, expected.width(), expected.height()), expected);
}

void SelectModeTest::theBarStartsDisabled() {
    QCOMPARE(enabled(), QList<bool>(5, false));
    QCOMPARE(checkedMode(), 0);
}

void SelectModeTest::activatingAModeChecksItsButtonAndEnablesAll() {
    QFETCH(int, mode);
    m_bar->setActiveMode(mode);
    QCOMPARE(enabled(), QList<bool>(5, true));
    QCOMPARE(checkedMode(), mode);
    QCOMPARE(announced(), QList<int>{mode});
}

void SelectModeTest::noModeDisablesAllButtons() {
    m_bar->setActiveMode(3);
    m_bar->setActiveMode(0);
    QCOMPARE(enabled(), QList<bool>(5, false));
    QCOMPARE(announced(), (QList<int>{3, 0}));
}

void SelectModeTest::aModeThatStandsIsAnnouncedAgain_data() {
    QTest::addColumn<int>("mode");
    QTest::newRow("none") << 0;
    QTest::newRow("network setting") << 2;
}

void SelectModeTest::aModeThatStandsIsAnnouncedAgain() {
    QFETCH(int, mode);
    m_bar->setActiveMode(mode);
    m_bar->setActiveMode(mode);
    QCOMPARE(announced(), (QList<int>{mode, mode}));
    QCOMPARE(enabled(), QList<bool>(5, mode != 0));
}

void SelectModeTest::anUnknownModeChangesNothing_data() {
    QTest::addColumn<int>("mode");
    QTest::newRow("one too high") << 6;
    QTest::newRow("highest") << std::numeric_limits<int>::max();
    QTest::newRow("negative") << -1;
    QTest::newRow("lowest") << std::numeric_limits<int>::min();
}

void SelectModeTest::anUnknownModeChangesNothing() {
    QFETCH(int, mode);
    m_bar->setActiveMode(mode);
    QCOMPARE(enabled(), QList<bool>(5, false));
    m_bar->setActiveMode(4);
    m_bar->setActiveMode(mode);
    QCOMPARE(enabled(), QList<bool>(5, true));
    QCOMPARE(checkedMode(), 4);
    QCOMPARE(announced(), QList<int>{4});
}

void SelectModeTest::aClickAnnouncesTheMode() {
    QFETCH(int, mode);
    m_bar->setActiveMode(mode == 1 ? 5 : 1);
    m_modes->clear();
    click(mode);
    QCOMPARE(announced(), QList<int>{mode});
    QCOMPARE(checkedMode(), mode);
}

void SelectModeTest::aClickOnTheCheckedButtonAnnouncesItsModeAgain() {
    m_bar->setActiveMode(2);
    click(2);
    QCOMPARE(announced(), (QList<int>{2, 2}));
    QCOMPARE(checkedMode(), 2);
}

void SelectModeTest::aDisabledButtonCannotBeClicked() {
    m_bar->setActiveMode(2);
    m_bar->setActiveMode(0);
    m_modes->clear();
    for (int mode = 1; mode <= 5; ++mode) {
        click(mode);
    }
    QVERIFY(m_modes->isEmpty());
}

void SelectModeTest::aSenderThatIsNoButtonMeansNoMode() {
    m_bar->setActiveMode(2);
    m_modes->clear();
    m_bar->slotSelect();
    m_bar->slotSelect(true);
    QCOMPARE(announced(), (QList<int>{0, 0}));
    QCOMPARE(checkedMode(), 2);
}

void SelectModeTest::theBarSendsNothingToTheCamera() {
    QSignalSpy sent(m_bar.get(), &ClWidgetBase::sigSendCommand);
    m_bar->showInit(false);
    m_bar->setActiveMode(1);
    click(5);
    QVERIFY(sent.isEmpty());
}

const TestSubject registered = subjectWithWidgets<SelectModeTest>();
#include "SelectModeTest.moc"
