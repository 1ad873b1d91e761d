// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QVariantList>

class QDialogButtonBox;
class QPushButton;

/// The base of every settings dialog: title, a title bar with nothing but a close button, the least
/// width and the row of "OK" and "Cancel".
///
/// The page that opens a dialog hands it the camera's values by setParam(), runs it by exec() and,
/// when it was accepted, takes the values to set from getParam(). What the list holds is each
/// dialog's own matter.
class ClDialogBase : public QDialog {
    Q_OBJECT

public:
    explicit ClDialogBase(QWidget* parent = nullptr);

    /// A dialog window whose title bar shows only a close button: the flags of every dialog.
    static constexpr Qt::WindowFlags WINDOW_FLAGS = Qt::Dialog | Qt::MSWindowsFixedSizeDialogHint |
                                                    Qt::CustomizeWindowHint |
                                                    Qt::WindowCloseButtonHint;
    static constexpr int MINIMUM_WIDTH = 170;  ///< pixels

    /// Loads the controls. Does nothing here.
    virtual void setParam(const QVariantList& params);
    /// The values of the controls; an empty list here.
    [[nodiscard]] virtual QVariantList getParam();
    /// Appends the row of buttons to the layout; a dialog calls it when all else is laid out. Does
    /// nothing without a layout and nothing a second time.
    virtual void addButtons();

protected:
    /// Whether there is anything to accept: "OK" is disabled while not. For after addButtons().
    void setAcceptable(bool isAcceptable);

private:
    QDialogButtonBox* m_buttonBox = nullptr;
    QPushButton* m_ok = nullptr;
};
