// SPDX-License-Identifier: MIT
#include "ui/ClMessageBox.h"

#include "ui/ClDialogBase.h"
#include "ui/ClDialogColumn.h"
#include "ui/ClTextButton.h"

#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>

#include <array>

namespace {

constexpr int SPACING = 15;  // pixels

struct stButton {
    QDialogButtonBox::StandardButton flag;
    const char* text;
};

struct stButtonChoice {
    QDialogButtonBox::ButtonRole role;
    std::array<stButton, 2> candidates;  // the first one that is asked for is shown
};

constexpr std::array CHOICES{
    stButtonChoice{QDialogButtonBox::AcceptRole,
                   {{{QDialogButtonBox::Ok, QT_TRANSLATE_NOOP("ClMessageBox", "OK")},
                     {QDialogButtonBox::Yes, QT_TRANSLATE_NOOP("ClMessageBox", "Yes")}}}},
    stButtonChoice{QDialogButtonBox::RejectRole,
                   {{{QDialogButtonBox::Cancel, QT_TRANSLATE_NOOP("ClMessageBox", "Cancel")},
                     {QDialogButtonBox::No, QT_TRANSLATE_NOOP("ClMessageBox", "No")}}}},
};

}  // namespace

ClMessageBox::ClMessageBox(QWidget* parent, const QString& text, const QString& title,
                           QDialogButtonBox::StandardButtons buttons)
    : QDialog(parent) {
    setWindowFlags(ClDialogBase::WINDOW_FLAGS);
    setWindowTitle(title);

    auto* label = new QLabel(text, this);
    label->setAlignment(Qt::AlignCenter);

    auto* column = new ClDialogColumn(this);
    column->setSpacing(SPACING);
    column->addWidget(label, 0, Qt::AlignHCenter);
    column->addWidget(createButtonBox(buttons), 0, Qt::AlignHCenter);

    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setMinimumWidth(ClDialogBase::MINIMUM_WIDTH);
}

void ClMessageBox::preferRejecting() {
    if (m_reject != nullptr) {
        // In a dialog the button that has the focus is also the default one.
        m_reject->setFocus();
    }
}

void ClMessageBox::tell(QWidget* parent, const QString& text) {
    ClMessageBox(parent, text, QCoreApplication::applicationName(), QDialogButtonBox::Ok).exec();
}

QDialogButtonBox* ClMessageBox::createButtonBox(QDialogButtonBox::StandardButtons buttons) {
    auto* box = new QDialogButtonBox(this);
    for (const stButtonChoice& choice : CHOICES) {
        for (const stButton& candidate : choice.candidates) {
            if (buttons.testFlag(candidate.flag)) {
                auto* const button = new ClTextButton(tr(candidate.text));
                box->addButton(button, choice.role);
                // The focus would start at the first button, which declines on some desktops.
                if (choice.role == QDialogButtonBox::AcceptRole) {
                    button->setFocus();
                } else {
                    m_reject = button;
                }
                break;
            }
        }
    }
    connect(box, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(box, &QDialogButtonBox::rejected, this, &QDialog::reject);
    return box;
}
