// SPDX-License-Identifier: MIT
#pragma once

#include <QDir>
#include <QObject>

#include <functional>

class ClMainWidget;
class QAbstractButton;
class QImage;

/// Walks through the tool as a user does, on whatever camera is on the bus, and leaves a picture of
/// everything it comes by. Main thread.
class ClTour : public QObject {
    Q_OBJECT

public:
    /// @p window is shown; pictures go to @p directory, which exists.
    ClTour(ClMainWidget& window, const QDir& directory);

    /// @return whether every stop was reached. Prints the path of each picture, or what was
    /// missing.
    [[nodiscard]] bool run();

private:
    [[nodiscard]] bool visitPages();
    [[nodiscard]] bool visitBox(QAbstractButton* button, const QString& name);
    [[nodiscard]] bool waitFor(const QString& what, const std::function<bool()>& condition);
    [[nodiscard]] bool takePicture(QWidget* widget, const QString& name);
    [[nodiscard]] bool takeWindowPicture(const QString& name);
    [[nodiscard]] bool save(const QImage& picture, const QString& name);

    ClMainWidget& m_window;
    QDir m_directory;
};
