// SPDX-License-Identifier: MIT
#include "tests/support/Patience.h"
#include "tests/support/TestSubject.h"
#include "tests/ui/Mouse.h"
#include "tests/ui/Painting.h"
#include "ui/ClRollOverToolBtn.h"

#include <QBitmap>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize SIZE{40, 20};

QPixmap plain(QSize size, Qt::GlobalColor colour) {
    QPixmap picture(size);
    picture.fill(colour);
    return picture;
}

// A disc on nothing.
QPixmap disc(QSize size, Qt::GlobalColor colour) {
    QPixmap picture = plain(size, Qt::transparent);
    QPainter painter(&picture);
    painter.setBrush(colour);
    painter.drawEllipse(QRect(QPoint(), size).adjusted(0, 0, -1, -1));
    return picture;
}

QIcon colouredIcon() {
    QIcon icon;
    icon.addPixmap(plain(SIZE, Qt::green), QIcon::Normal);
    icon.addPixmap(plain(SIZE, Qt::yellow), QIcon::Active);
    icon.addPixmap(plain(SIZE, Qt::blue), QIcon::Selected);
    icon.addPixmap(plain(SIZE, Qt::gray), QIcon::Disabled);
    return icon;
}

class PaintCounter : public ClRollOverToolBtn {
public:
    using ClRollOverToolBtn::ClRollOverToolBtn;
    int m_paints = 0;

protected:
    void paintEvent(QPaintEvent* event) override {
        ++m_paints;
        ClRollOverToolBtn::paintEvent(event);
    }
};

class OffButton : public ClRollOverToolBtn {
public:
    using ClRollOverToolBtn::ClRollOverToolBtn;
    QIcon::State state() const override { return QIcon::Off; }
};

}  // namespace

/// The tool button that is drawn from pictures.
class RollOverButtonTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_window.reset(); }

    void startsPlain();
    void showsHoverAndPress();
    void showsFocus();
    void showsChecked();
    void showsDisabledBeforeAllElse();
    void repaintsWhenASetterIsCalled();
    void isSetThroughItsProperties();
    void takesThePictureOfItsIconState();
    void asksASubclassForItsIconState();
    void stretchesThePictureOverTheButton();
    void takesTheShapeOfThePicture();
    void followsAChangeOfShape();
    void looksLikeAnyToolButtonWithoutAPicture();
    void paintsAtItsOpacity();
    void clicksOnlyInsideItsShape();

private:
    QColor colour() { return painted(*m_button).pixelColor(SIZE.width() / 2, SIZE.height() / 2); }

    std::unique_ptr<QWidget> m_window;
    PaintCounter* m_button = nullptr;
};

void RollOverButtonTest::init() {
    m_window = std::make_unique<QWidget>();
    m_window->resize(200, 100);
    auto* const edit = new QLineEdit(m_window.get());  // holds the focus at first
    edit->move(100, 50);
    m_button = new PaintCounter(m_window.get());
    m_button->setGeometry({QPoint(10, 10), SIZE});
    m_button->setFocusPolicy(Qt::StrongFocus);
    m_window->show();
    edit->setFocus();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    moveMouse(*m_window, {150, 90});
}

void RollOverButtonTest::startsPlain() {
    QVERIFY(m_button->testAttribute(Qt::WA_Hover));
    QVERIFY(m_button->imgShow().isNull());
    QCOMPARE(m_button->state(), QIcon::On);
    QCOMPARE(m_button->opacity(), 1.0);
}

void RollOverButtonTest::showsHoverAndPress() {
    m_button->setImgShow(colouredIcon());
    QCOMPARE(colour(), QColor(Qt::green));
    TRY_VERIFY(m_button->m_paints > 0);
    QCoreApplication::processEvents();

    const int before = m_button->m_paints;
    moveMouse(*m_button);
    QTRY_VERIFY2_WITH_TIMEOUT(m_button->m_paints > before, "entering repaints", PATIENCE_MS);
    QCOMPARE(colour(), QColor(Qt::yellow));
    pressMouse(*m_button, m_button->rect().center());
    QCOMPARE(colour(), QColor(Qt::blue));
    releaseMouse(*m_button, m_button->rect().center());
    QCOMPARE(colour(), QColor(Qt::yellow));

    // A click with the mouse has focused the button, which looks like hovering.
    m_window->findChild<QLineEdit*>()->setFocus();
    moveMouse(*m_window, {150, 90});
    QCOMPARE(colour(), QColor(Qt::green));
}

void RollOverButtonTest::showsFocus() {
    m_button->setImgShow(colouredIcon());
    QTest::keyClick(m_window.get(), Qt::Key_Tab);
    QVERIFY(m_button->hasFocus());
    QCOMPARE(colour(), QColor(Qt::yellow));
    QTest::keyClick(m_button, Qt::Key_Tab);
    QCOMPARE(colour(), QColor(Qt::green));
}

void RollOverButtonTest::showsChecked() {
    m_button->setImgShow(colouredIcon());
    m_button->setCheckable(true);
    clickMouse(*m_button);
    QVERIFY(m_button->isChecked());
    moveMouse(*m_window, {150, 90});
    QCOMPARE(colour(), QColor(Qt::blue));
}

void RollOverButtonTest::showsDisabledBeforeAllElse() {
    m_button->setImgShow(colouredIcon());
    m_button->setCheckable(true);
    clickMouse(*m_button);
    m_button->setEnabled(false);
    QCOMPARE(colour(), QColor(Qt::gray));
}

void RollOverButtonTest::repaintsWhenASetterIsCalled() {
    const std::pair<const char*, std::function<void()>> setters[]{
        {"setImgShow", [&] { m_button->setImgShow(colouredIcon()); }},
        {"setState", [&] { m_button->setState(QIcon::Off); }},
        {"setOpacity", [&] { m_button->setOpacity(0.5); }},
    };
    for (const auto& [name, set] : setters) {
        QCoreApplication::processEvents();
        const int before = m_button->m_paints;
        set();
        QTRY_VERIFY2_WITH_TIMEOUT(m_button->m_paints > before, name, PATIENCE_MS);
    }
}

void RollOverButtonTest::isSetThroughItsProperties() {
    QVERIFY(m_button->setProperty("opacity", 0.25));
    QCOMPARE(m_button->opacity(), 0.25);
    QVERIFY(m_button->setProperty("imgShow", QVariant::fromValue(colouredIcon())));
    QCOMPARE(colour().rgb(), QColor(Qt::green).rgb());
    QCOMPARE(m_button->property("imgShow").value<QIcon>().cacheKey(),
             m_button->imgShow().cacheKey());
}

void RollOverButtonTest::takesThePictureOfItsIconState() {
    QIcon icon;
    icon.addPixmap(plain(SIZE, Qt::red), QIcon::Normal, QIcon::On);
    icon.addPixmap(plain(SIZE, Qt::cyan), QIcon::Normal, QIcon::Off);
    m_button->setImgShow(icon);
    QCOMPARE(colour(), QColor(Qt::red));
    m_button->setState(QIcon::Off);
    QCOMPARE(m_button->state(), QIcon::Off);
    QCOMPARE(colour(), QColor(Qt::cyan));
}

void RollOverButtonTest::asksASubclassForItsIconState() {
    QIcon icon;
    icon.addPixmap(plain(SIZE, Qt::red), QIcon::Normal, QIcon::On);
    icon.addPixmap(plain(SIZE, Qt::cyan), QIcon::Normal, QIcon::Off);
    OffButton button;
    button.resize(SIZE);
    button.setImgShow(icon);
    QCOMPARE(painted(button).pixelColor(20, 10), QColor(Qt::cyan));
}

void RollOverButtonTest::stretchesThePictureOverTheButton() {
    QIcon icon;
    icon.addPixmap(plain({10, 10}, Qt::red));
    m_button->setImgShow(icon);
    QCOMPARE(painted(*m_button), blankWith(*m_button, plain(SIZE, Qt::red)));

    icon = QIcon();
    icon.addPixmap(plain({400, 100}, Qt::cyan));
    m_button->setImgShow(icon);
    QCOMPARE(painted(*m_button), blankWith(*m_button, plain(SIZE, Qt::cyan)));
}

void RollOverButtonTest::takesTheShapeOfThePicture() {
    const QPixmap shape = disc(SIZE, Qt::red);
    QIcon icon;
    icon.addPixmap(shape);
    m_button->setImgShow(icon);
    QCOMPARE(painted(*m_button), blankWith(*m_button, shape));
    QCOMPARE(m_button->mask(), QRegion(shape.mask()));
    QVERIFY(!m_button->mask().contains(QPoint(0, 0)));
    QVERIFY(m_button->mask().contains(QPoint(20, 10)));
}

void RollOverButtonTest::followsAChangeOfShape() {
    QIcon icon;
    icon.addPixmap(disc(SIZE, Qt::red));
    icon.addPixmap(plain(SIZE, Qt::blue), QIcon::Selected);
    m_button->setImgShow(icon);
    TRY_VERIFY(!m_button->mask().contains(QPoint(0, 0)));

    pressMouse(*m_button, m_button->rect().center());
    QTRY_VERIFY2_WITH_TIMEOUT(m_button->mask().isEmpty(), "an opaque picture is the whole button",
                              PATIENCE_MS);
    QCOMPARE(painted(*m_button), blankWith(*m_button, plain(SIZE, Qt::blue)));
    releaseMouse(*m_button, m_button->rect().center());
    TRY_VERIFY(!m_button->mask().contains(QPoint(0, 0)));
}

void RollOverButtonTest::looksLikeAnyToolButtonWithoutAPicture() {
    QIcon icon;
    icon.addPixmap(disc(SIZE, Qt::red));
    m_button->setImgShow(icon);
    TRY_VERIFY(!m_button->mask().isEmpty());

    m_button->setImgShow(QIcon());
    m_button->setText(u"text"_s);
    TRY_VERIFY(m_button->mask().isEmpty());
    QToolButton usual(m_window.get());
    usual.setGeometry(m_button->geometry());
    usual.setText(u"text"_s);
    QCOMPARE(painted(*m_button), painted(usual));
}

void RollOverButtonTest::paintsAtItsOpacity() {
    m_button->setImgShow(colouredIcon());
    m_button->setOpacity(0.5);
    const int alpha = colour().alpha();
    QVERIFY2(qAbs(alpha - 128) <= 1, qPrintable(QString::number(alpha)));
    m_button->setOpacity(0.0);
    QCOMPARE(colour().alpha(), 0);
}

void RollOverButtonTest::clicksOnlyInsideItsShape() {
    QIcon icon;
    icon.addPixmap(disc(SIZE, Qt::red));
    m_button->setImgShow(icon);
    TRY_VERIFY(!m_button->mask().isEmpty());
    QSignalSpy clicked(m_button, &QAbstractButton::clicked);
    clickMouse(*m_button, {0, 0});
    QCOMPARE(clicked.size(), 0);
    clickMouse(*m_button);
    QCOMPARE(clicked.size(), 1);
}

const TestSubject registered = subjectWithWidgets<RollOverButtonTest>();
#include "RollOverButtonTest.moc"
