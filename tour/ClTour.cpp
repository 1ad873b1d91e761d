// SPDX-License-Identifier: MIT
#include "tour/ClTour.h"

#include "app/ClMainWidget.h"
#include "pages/ClWidgetSelectMode.h"
#include "ui/Artwork.h"
#include "ui/ClButtonMode.h"

#include <QApplication>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QStackedLayout>
#include <QTest>
#include <QTextStream>
#include <QTimer>

#include <algorithm>
#include <array>

namespace {

constexpr int PATIENCE_MS = 10000;
constexpr int LOOK_INTERVAL_MS = 10;

QTextStream& out() {
    static QTextStream stream(stdout);
    return stream;
}

QStackedLayout* pagesOf(const ClMainWidget& window) {
    return window.findChild<QStackedLayout*>();
}

bool showsEverything(const QWidget& /*page*/) {
    return true;
}

// The last value of the page's refresh: once it is there, so are the others.
bool showsCardSize(const QWidget& page) {
    return std::ranges::any_of(page.findChildren<QLabel*>(), [](const QLabel* label) {
        return label->text().contains(u'%') && label->isVisible() && label->text().contains(u'(');
    });
}

bool showsCameraName(const QWidget& page) {
    return page.findChild<QPushButton*>()->text() != QStringLiteral("--");
}

/// A page on the way, and the dialogs or boxes that its buttons open, from the first button on.
struct stStop {
    const char* name;
    bool (*isReady)(const QWidget& page);
    std::vector<ClTour::stDialog> dialogs;
};

/// In the order of the modes.
const std::array<stStop, MODE_LAST> STOPS{{
    {"camera-state", showsCardSize, {{"box1"}, {"box2"}, {"box3"}}},
    {"network-setting", showsEverything, {}},
    {"basic-setting",
     showsCameraName,
     {{"camera-name"},
      {"time-zone"},
      {"time", 1, "calendar"},
      {"auto-wifi-off"},
      {"wifi-country"},
      {"auto-power-off"},
      {"led"},
      {"gps"},
      {"authorization"},
      {"interval"},
      {"image-quality"}}},
    {"stream-setting", showsEverything, {}},
    {"help", showsEverything, {}},
}};

}  // namespace

ClTour::ClTour(ClMainWidget& window, const QDir& directory)
    : m_window(window),
      m_directory(directory) {}

bool ClTour::run() {
    if (!takeWindowPicture(QStringLiteral("not-connected")) ||
        !waitFor(QStringLiteral("a camera"),
                 [this] { return pagesOf(m_window)->currentIndex() != MODE_NOT_CONNECTED; })) {
        return false;
    }
    for (std::size_t i = 0; i < STOPS.size(); ++i) {
        if (!visitPage(static_cast<int>(i) + 1)) {
            return false;
        }
    }
    return true;
}

bool ClTour::visitPage(int mode) {
    const stStop& stop = STOPS[static_cast<std::size_t>(mode) - 1];
    const QString name = QString::fromLatin1(stop.name);
    const QStackedLayout* pages = pagesOf(m_window);
    if (pages->currentIndex() != mode) {
        QTest::mouseClick(m_window.findChildren<ClButtonMode*>().at(mode - 1), Qt::LeftButton);
    }
    const QWidget* page = pages->widget(mode);
    return waitFor(name, [&] { return pages->currentWidget() == page && stop.isReady(*page); }) &&
           takeWindowPicture(name) && visitDialogs(*page, name, stop.dialogs);
}

bool ClTour::visitDialogs(const QWidget& parent, const QString& name,
                          const std::vector<stDialog>& dialogs) {
    const QList<QPushButton*> buttons = parent.findChildren<QPushButton*>();
    for (std::size_t i = 0; i < dialogs.size(); ++i) {
        QPushButton* button = buttons.value(static_cast<qsizetype>(i));
        if (button == nullptr || !visitDialog(*button, name, dialogs[i])) {
            out() << "There is no " << name << ' ' << dialogs[i].name << Qt::endl;
            return false;
        }
    }
    return true;
}

bool ClTour::visitDialog(QPushButton& button, const QString& page, const stDialog& visited) {
    const QString name = page + u'-' + QString::fromLatin1(visited.name);
    const QWidget* before = QApplication::activeModalWidget();
    bool isVisited = false;
    bool isClosed = false;
    // A click may return when the dialog has been closed, or before it opens.
    QTimer look;
    connect(&look, &QTimer::timeout, this, [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        if (dialog == before || !dialog->isVisible()) {
            return;
        }
        look.stop();
        isVisited = takePicture(dialog, name);
        if (isVisited && visited.innerName != nullptr) {
            QPushButton* inner = dialog->findChildren<QPushButton*>().value(visited.innerButton);
            isVisited = inner != nullptr && visitDialog(*inner, page, {visited.innerName});
        }
        QTest::keyClick(dialog, Qt::Key_Escape);
        isClosed = true;
    });
    look.start(LOOK_INTERVAL_MS);
    QTest::mouseClick(&button, Qt::LeftButton);
    return waitFor(name, [&] { return isClosed && QApplication::activeModalWidget() == before; }) &&
           isVisited;
}

bool ClTour::waitFor(const QString& what, const std::function<bool()>& condition) {
    if (QTest::qWaitFor(condition, PATIENCE_MS)) {
        return true;
    }
    out() << "Waited in vain for " << what << Qt::endl;
    return false;
}

bool ClTour::takePicture(QWidget* widget, const QString& name) {
    return save(widget->grab().toImage(), name);
}

bool ClTour::takeWindowPicture(const QString& name) {
    // The pointer rests where nothing lights up under it.
    QTest::mouseMove(&m_window, m_window.rect().center());
    QImage picture = m_window.grab().toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    // What lies outside the window's rounded corners is not part of it.
    QPainter painter(&picture);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.drawPixmap(0, 0, artwork(QStringLiteral(":/img/window"), m_window.devicePixelRatioF()));
    painter.end();
    return save(picture, name);
}

bool ClTour::save(const QImage& picture, const QString& name) {
    const QString path = m_directory.filePath(name + QStringLiteral(".png"));
    if (!picture.save(path)) {
        out() << "Cannot write " << path << Qt::endl;
        return false;
    }
    out() << path << Qt::endl;
    return true;
}
