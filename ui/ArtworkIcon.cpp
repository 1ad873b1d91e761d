// SPDX-License-Identifier: MIT
#include "ui/ArtworkIcon.h"

#include "ui/Artwork.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>

namespace {

// QIcon::addFile() does find "@2x", but for names without extension it looks through the whole MIME
// database first, which takes longer than decoding every picture of the window.
class ArtworkIconEngine : public QIconEngine {
public:
    explicit ArtworkIconEngine(const ArtworkPaths& paths) : m_paths(paths) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
               QIcon::State state) override {
        const qreal scale = painter->device()->devicePixelRatioF();
        painter->drawPixmap(rect, scaledPixmap(rect.size() * scale, mode, state, scale));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return scaledPixmap(size, mode, state, 1.0);
    }

    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State, qreal scale) override {
        const QIcon::Mode shown = pictureMode(mode);
        QPixmap picture = artwork(m_paths.value(shown), scale);
        if (picture.width() > size.width() || picture.height() > size.height()) {
            picture = picture.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        }
        if (shown == mode || mode == QIcon::Normal || picture.isNull()) {
            return picture;
        }
        QStyleOption option;
        option.palette = QGuiApplication::palette();
        return QApplication::style()->generatedIconPixmap(mode, picture, &option);
    }

    QIconEngine* clone() const override { return new ArtworkIconEngine(m_paths); }

private:
    QIcon::Mode pictureMode(QIcon::Mode wanted) const {
        const QIcon::Mode other = wanted == QIcon::Normal ? QIcon::Active : QIcon::Normal;
        for (const QIcon::Mode mode : {wanted, other}) {
            if (m_paths.contains(mode)) {
                return mode;
            }
        }
        return m_paths.isEmpty() ? wanted : m_paths.firstKey();
    }

    ArtworkPaths m_paths;
};

}  // namespace

QIcon artworkIcon(const ArtworkPaths& paths) {
    return QIcon(new ArtworkIconEngine(paths));
}
