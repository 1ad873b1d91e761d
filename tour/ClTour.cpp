// SPDX-License-Identifier: MIT
#include "tour/ClTour.h"

#include "app/ClMainWidget.h"
#include "pages/ClWidgetCameraState.h"
#include "pages/ClWidgetNotConnect.h"
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

namespace {

constexpr int PATIENCE_MS = 10000;

QTextStream& out() {
    static QTextStream stream(stdout);
    return stream;
}

QStackedLayout* pagesOf(const ClMainWidget& window) {
    return window.findChild<QStackedLayout*>();
}

// The last value of the page's refresh: once it is there, so are the others.
bool showsCardSize(const QWidget& page) {
    return std::ranges::any_of(page.findChildren<QLabel*>(), [](const QLabel* label) {
        return label->text().contains(u'%') && label->isVisible() && label->text().contains(u'(');
    });
}

}  // namespace

ClTour::ClTour(ClMainWidget& window, const QDir& directory)
    : m_window(window),
      m_directory(directory) {}

bool ClTour::run() {
    return takeWindowPicture(QStringLiteral("not-connected")) && visitPages();
}

bool ClTour::visitPages() {
    const auto* cameraState = m_window.findChild<ClWidgetCameraState*>();
    if (!waitFor(QStringLiteral("the camera's values"),
                 [cameraState] { return showsCardSize(*cameraState); }) ||
        !takeWindowPicture(QStringLiteral("camera-state"))) {
        return false;
    }
    int number = 0;
    for (QPushButton* button : cameraState->findChildren<QPushButton*>()) {
        if (!visitBox(button, QStringLiteral("camera-state-box%1").arg(++number))) {
            return false;
        }
    }
    const QStringList names{QStringLiteral("network-setting"), QStringLiteral("basic-setting"),
                            QStringLiteral("stream-setting"), QStringLiteral("help")};
    const QList<ClButtonMode*> modes = m_window.findChildren<ClButtonMode*>();
    for (qsizetype i = 0; i < names.size(); ++i) {
        const qsizetype mode = i + 1;  // the first button is the page just visited
        QTest::mouseClick(modes[mode], Qt::LeftButton);
        if (!waitFor(names[i],
                     [this, mode] { return pagesOf(m_window)->currentIndex() == mode + 1; }) ||
            !takeWindowPicture(names[i])) {
            return false;
        }
    }
    return true;
}

bool ClTour::visitBox(QAbstractButton* button, const QString& name) {
    bool isTaken = false;
    // The click returns when the box has been closed.
    QTimer::singleShot(0, this, [this, name, &isTaken] {
        QWidget* box = QApplication::activeModalWidget();
        if (box != nullptr && waitFor(name, [box] { return box->isVisible(); })) {
            isTaken = takePicture(box, name);
            QTest::keyClick(box, Qt::Key_Escape);
        }
    });
    QTest::mouseClick(button, Qt::LeftButton);
    return isTaken;
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
