// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QDialogButtonBox>

class QPushButton;

/// The tool's own small modal box for errors and confirmations. Run it by exec(): QDialog::Accepted
/// for OK and Yes, QDialog::Rejected for Cancel, No and the close button.
class ClMessageBox : public QDialog {
    Q_OBJECT

public:
    /// @p buttons holds at most one accepting button (Ok before Yes) and at most one rejecting one
    /// (Cancel before No); other flags are ignored.
    ClMessageBox(QWidget* parent, const QString& text, const QString& title,
                 QDialogButtonBox::StandardButtons buttons);

    /// Has the rejecting button take the Return key: for a question whose consent cannot be undone.
    void preferRejecting();

    /// Tells the user @p text, in a box with "OK" under the program's name. Returns when it is
    /// closed.
    static void tell(QWidget* parent, const QString& text);

private:
    QDialogButtonBox* createButtonBox(QDialogButtonBox::StandardButtons buttons);

    QPushButton* m_reject = nullptr;
};
