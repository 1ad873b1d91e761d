// SPDX-License-Identifier: MIT
#pragma once

#include <QDir>
#include <QObject>

#include <functional>
#include <vector>

class ClMainWidget;
class QImage;
class QPushButton;

/// Walks through the tool as a user does, on whatever camera is on the bus, and leaves a picture of
/// everything it comes by. Main thread.
class ClTour : public QObject {
    Q_OBJECT

public:
    /// A dialog on the way, and the one behind a button of it.
    struct stDialog {
        const char* name;
        int innerButton = 0;
        const char* innerName = nullptr;
    };

    /// @p window is shown; pictures go to @p directory, which exists.
    ClTour(ClMainWidget& window, const QDir& directory);

    /// @return whether every stop was reached. Prints the path of each picture, or what was
    /// missing.
    [[nodiscard]] bool run();

private:
    [[nodiscard]] bool visitPage(int mode);
    [[nodiscard]] bool visitDialogs(const QWidget& parent, const QString& name,
                                    const std::vector<stDialog>& dialogs);
    /// Clicks @p button, takes a picture of the dialog that opens, and presses Escape.
    [[nodiscard]] bool visitDialog(QPushButton& button, const QString& page,
                                   const stDialog& visited);
    [[nodiscard]] bool waitFor(const QString& what, const std::function<bool()>& condition);
    [[nodiscard]] bool takePicture(QWidget* widget, const QString& name);
    [[nodiscard]] bool takeWindowPicture(const QString& name);
    [[nodiscard]] bool save(const QImage& picture, const QString& name);

    ClMainWidget& m_window;
    QDir m_directory;
};
