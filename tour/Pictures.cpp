// SPDX-License-Identifier: MIT
#include "tour/Pictures.h"

#include "app/ClMainWidget.h"

#include <QDir>
#include <QImage>
#include <QTest>
#include <QTextStream>

namespace {

constexpr int POINTER_ABOVE_BOTTOM = 8;  // pixels

QImage windowPicture(ClMainWidget& window) {
    // The pointer rests where nothing lights up under it.
    QTest::mouseMove(&window, {window.width() / 2, window.height() - POINTER_ABOVE_BOTTOM});
    return window.grab().toImage();
}

}  // namespace

bool savePicture(QWidget& shown, const QString& name, const QDir& directory) {
    auto* window = qobject_cast<ClMainWidget*>(&shown);
    const QImage picture = window == nullptr ? shown.grab().toImage() : windowPicture(*window);
    const QString path = directory.filePath(name + QStringLiteral(".png"));
    const bool isSaved = picture.save(path);
    QTextStream(stdout) << (isSaved ? QString() : QStringLiteral("Cannot write ")) << path
                        << Qt::endl;
    return isSaved;
}
