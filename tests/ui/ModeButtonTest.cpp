// SPDX-License-Identifier: MIT
#include "tests/support/Patience.h"
#include "tests/support/TestSubject.h"
#include "tests/ui/Mouse.h"
#include "tests/ui/Painting.h"
#include "ui/Artwork.h"
#include "ui/ClButtonMode.h"

#include <QAccessible>
#include <QApplication>
#include <QBitmap>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr QPoint IMAGE_POSITION{26, 7};

// Whether any pixel of the caption has exactly the colour: glyphs have solid strokes.
bool captionHas(const QImage& image, const QLabel& label, Qt::GlobalColor colour) {
    const QRect area = label.geometry();
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (image.pixelColor(x, y) == QColor(colour)) {
                return true;
            }
        }
    }
    return false;
}

}  // namespace

/// The buttons of the mode bar.
class ModeButtonTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void isMadeForTheModeBar();
    void placesItsCaption_data();
    void placesItsCaption();
    void endsEveryCaptionAtTheSameHeight();
    void wrapsACaptionThatIsTooWide();
    void drawsOnlyItsPictureWhenIdle();
    void drawsABackgroundForTheMouse();
    void drawsABackgroundWhenChecked();
    void drawsNoBackgroundWhenDisabled();
    void coloursItsCaption_data();
    void coloursItsCaption();
    void settlesAfterAChange();
    void takesNoFocus();
    void isPressedByAnAccessibilityClient();

private:
    QImage expected(const QString& background) const;

    std::unique_ptr<QWidget> m_window;
    ClButtonMode* m_button = nullptr;
    QLabel* m_label = nullptr;
};

void ModeButtonTest::init() {
    m_window = std::make_unique<QWidget>();
    m_window->resize(300, 200);
    m_button = new ClButtonMode(u":/img/button_help"_s, u"Help"_s, m_window.get());
    m_button->move(10, 10);
    m_label = m_button->findChild<QLabel*>();
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    moveMouse(*m_window, {290, 190});
}

void ModeButtonTest::cleanup() {
    m_window.reset();
    QApplication::setPalette(QPalette());
}

QImage ModeButtonTest::expected(const QString& background) const {
    QImage image = blankWith(*m_button, artwork(background, 1.0));
    QPainter(&image).drawPixmap(IMAGE_POSITION, artwork(u":/img/button_help"_s, 1.0));
    return image;
}

void ModeButtonTest::isMadeForTheModeBar() {
    QVERIFY(m_button->isCheckable());
    QVERIFY(!m_button->isChecked());
    QCOMPARE(m_button->sizeHint(), QSize(112, 84));
    QCOMPARE(m_button->size(), QSize(112, 84));
    QCOMPARE(m_label->text(), u"Help"_s);
    QVERIFY(m_label->width() == 112);
    QVERIFY(m_label->alignment() & Qt::AlignHCenter);
}

void ModeButtonTest::placesItsCaption_data() {
    QTest::addColumn<QString>("caption");
    QTest::addColumn<int>("pixels");  // height of the font
    QTest::newRow("one line") << u"Help"_s << 12;
    QTest::newRow("two lines") << u"Stream\nsetting"_s << 12;
    QTest::newRow("one high line") << u"Help"_s << 20;
}

void ModeButtonTest::placesItsCaption() {
    QFETCH(QString, caption);
    QFETCH(int, pixels);
    QFont font = QApplication::font();
    font.setPixelSize(pixels);
    QWidget parent;
    parent.setFont(font);
    const ClButtonMode button(u":/img/button_help"_s, caption, &parent);
    const auto* const label = button.findChild<QLabel*>();
    const int height = label->sizeHint().height();
    if (caption == "Help"_L1 && pixels == 12) {
        QVERIFY(height < 20);
        QCOMPARE(label->pos(), QPoint(0, 65));
    } else {
        QVERIFY(height >= 20);
        QCOMPARE(label->pos(), QPoint(0, 83 - height));
    }
}

void ModeButtonTest::endsEveryCaptionAtTheSameHeight() {
    auto* const two =
        new ClButtonMode(u":/img/button_help"_s, u"Stream\nsetting"_s, m_window.get());
    const auto* const label = two->findChild<QLabel*>();
    two->show();
    QCOMPARE(label->y() + label->height(), 83);
    QVERIFY(label->y() < m_label->y());
    QVERIFY(qAbs(m_label->y() + m_label->height() - 83) <= 5);
}

void ModeButtonTest::wrapsACaptionThatIsTooWide() {
    auto* const wide =
        new ClButtonMode(u":/img/button_help"_s, u"Live view and stream setting"_s, m_window.get());
    const auto* const label = wide->findChild<QLabel*>();
    wide->show();
    QVERIFY(label->height() >= 2 * QFontMetrics(label->font()).height());
    QCOMPARE(label->width(), 112);
    QCOMPARE(label->y() + label->height(), 83);
    QVERIFY(label->y() < 65);
}

void ModeButtonTest::drawsOnlyItsPictureWhenIdle() {
    QCOMPARE(painted(*m_button),
             blankWith(*m_button, artwork(u":/img/button_help"_s, 1.0), IMAGE_POSITION));
}

void ModeButtonTest::drawsABackgroundForTheMouse() {
    moveMouse(*m_button);
    QCOMPARE(painted(*m_button), expected(u":/img/button1"_s));
    QCOMPARE(m_button->mask(), QRegion(artwork(u":/img/button1"_s, 1.0).mask()));

    moveMouse(*m_label);
    QCOMPARE(painted(*m_button), expected(u":/img/button1"_s));

    pressMouse(*m_button, m_button->rect().center());
    QCOMPARE(painted(*m_button), expected(u":/img/button2"_s));
    moveMouse(*m_window, {290, 190});
    releaseMouse(*m_window, {290, 190});
    QCOMPARE(painted(*m_button),
             blankWith(*m_button, artwork(u":/img/button_help"_s, 1.0), IMAGE_POSITION));
}

void ModeButtonTest::drawsABackgroundWhenChecked() {
    clickMouse(*m_button);
    QVERIFY(m_button->isChecked());
    moveMouse(*m_window, {290, 190});
    QCOMPARE(painted(*m_button), expected(u":/img/button2"_s));
}

void ModeButtonTest::drawsNoBackgroundWhenDisabled() {
    clickMouse(*m_button);
    m_button->setEnabled(false);
    QCOMPARE(painted(*m_button),
             blankWith(*m_button, artwork(u":/img/button_help"_s, 1.0), IMAGE_POSITION));
}

void ModeButtonTest::coloursItsCaption_data() {
    QTest::addColumn<bool>("darkDesktop");
    QTest::newRow("light desktop") << false;
    QTest::newRow("dark desktop") << true;
}

void ModeButtonTest::coloursItsCaption() {
    QFETCH(bool, darkDesktop);
    if (darkDesktop) {
        QApplication::setPalette(QPalette(QColor(0x31, 0x36, 0x3B), QColor(0x23, 0x26, 0x29)));
    }
    const auto shown = [this] { return painted(*m_button, QWidget::DrawChildren); };
    const auto isBlack = [&] {
        const QImage image = shown();
        return captionHas(image, *m_label, Qt::black) && !captionHas(image, *m_label, Qt::white);
    };
    const auto isWhite = [&] {
        const QImage image = shown();
        return captionHas(image, *m_label, Qt::white) && !captionHas(image, *m_label, Qt::black);
    };
    QVERIFY2(isBlack(), "idle");
    moveMouse(*m_button);
    QVERIFY2(isBlack(), "hovered");
    pressMouse(*m_button, m_button->rect().center());
    QVERIFY2(isWhite(), "pressed");
    releaseMouse(*m_button, m_button->rect().center());
    QVERIFY2(isWhite(), "checked");
    m_button->setEnabled(false);
    QVERIFY2(isBlack(), "disabled");
}

// Setting a palette while painting asks for another paint, which must not ask again.
void ModeButtonTest::settlesAfterAChange() {
    clickMouse(*m_button);
    class PaintCounter : public QObject {
    public:
        bool eventFilter(QObject*, QEvent* event) override {
            m_paints += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
        int m_paints = 0;
    } counter;
    for (int turn = 0; turn < 5; ++turn) {
        QCoreApplication::processEvents();
    }
    m_button->installEventFilter(&counter);
    m_button->update();
    for (int turn = 0; turn < 5; ++turn) {
        QCoreApplication::processEvents();
    }
    QCOMPARE(counter.m_paints, 1);
}

void ModeButtonTest::takesNoFocus() {
    QCOMPARE(m_button->focusPolicy(), Qt::NoFocus);
    clickMouse(*m_button);
    QVERIFY(!m_button->hasFocus());
}

void ModeButtonTest::isPressedByAnAccessibilityClient() {
    QAccessibleInterface* const interface = QAccessible::queryAccessibleInterface(m_button);
    QCOMPARE(interface->text(QAccessible::Name), u"Help"_s);
    QCOMPARE(interface->role(), QAccessible::RadioButton);
    QVERIFY(interface->state().checkable && !interface->state().checked);
    QCOMPARE(interface->actionInterface()->actionNames().first(),
             QAccessibleActionInterface::pressAction());

    QSignalSpy clicked(m_button, &QAbstractButton::clicked);
    interface->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    TRY_COMPARE(clicked.size(), 1);
    QVERIFY(m_button->isChecked());
    QVERIFY(interface->state().checked);

    m_button->setEnabled(false);
    QVERIFY(!interface->actionInterface()->actionNames().contains(
        QAccessibleActionInterface::pressAction()));
    interface->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QVERIFY(!m_button->isDown());
    QVERIFY(interface->state().disabled);
}

const TestSubject registered = subjectWithWidgets<ModeButtonTest>();
#include "ModeButtonTest.moc"
