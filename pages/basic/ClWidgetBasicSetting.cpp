// SPDX-License-Identifier: MIT
#include "pages/basic/ClWidgetBasicSetting.h"

#include "pages/common/PageParts.h"
#include "protocol/CommandIdentifiers.h"
#include "protocol/ResultCodes.h"
#include "ui/ClDialogBase.h"
#include "ui/ClLabelSepalator.h"

#include <QHBoxLayout>
#include <QHideEvent>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScrollArea>

#include <algorithm>
#include <memory>
#include <optional>
#include <span>
#include <utility>

namespace {

constexpr int PAGE_HEIGHT = 505;
constexpr QMargins PAGE_MARGINS{0, 19, 0, 0};
constexpr int SPACING = 6;
constexpr int CAPTION_INDENT = 37;
// Enough for the text. The lines of some fonts, Japanese ones above all, are higher, and would push
// the last button off the page.
constexpr int CAPTION_HEIGHT = 16;
const QString UNKNOWN_NAME = QStringLiteral("--");

using Identifier = QUuid stCameraSetting::*;

/// The setting of @p row whose identifier of that kind is @p command, or null.
const stCameraSetting* settingWith(const stBasicSettingRow& row, Identifier kind,
                                   const QUuid& command) {
    const auto* found = std::ranges::find(row.settings, command, kind);
    return command.isNull() || found == row.settings.end() ? nullptr : found;
}

std::span<const stCameraSetting> settingsOf(const stBasicSettingRow& row) {
    const auto* end = std::ranges::find_if(row.settings, &QUuid::isNull, &stCameraSetting::request);
    return {row.settings.begin(), end};
}

bool showsName(const stBasicSettingRow& row) {
    return row.text == nullptr;
}

}  // namespace

ClWidgetBasicSetting::ClWidgetBasicSetting(QWidget* parent, std::span<const stBasicSettingRow> rows)
    : ClWidgetBase(parent),
      m_rows(rows) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(PAGE_MARGINS);
    column->setSpacing(SPACING);
    std::optional<BasicSettingSection> section;
    for (const stBasicSettingRow& row : m_rows) {
        if (section != row.section) {
            if (section) {
                column->addWidget(new ClLabelSepalator(this));
            }
            section = row.section;
            addCaption(sectionCaption(row.section), column);
        }
        addButton(row, column);
        addReads(row);
    }
    column->addStretch();
    makeRoom();
}

void ClWidgetBasicSetting::makeRoom() {
    if (layout()->minimumSize().height() <= PAGE_HEIGHT) {
        return;
    }
    auto* content = new QWidget;
    content->setLayout(layout());  // takes the buttons and captions along
    auto* area = new QScrollArea(this);
    area->setFrameShape(QFrame::NoFrame);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setWidgetResizable(true);
    area->setWidget(content);
    // The keys go from button to button, and the area follows. What is behind the page shows.
    area->setFocusPolicy(Qt::NoFocus);
    area->viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
    auto* frame = new QVBoxLayout(this);
    frame->setContentsMargins(0, 0, 0, 0);
    frame->addWidget(area);
}

void ClWidgetBasicSetting::addCaption(const char* text, QVBoxLayout* column) {
    if (text == nullptr) {
        return;
    }
    auto* line = new QHBoxLayout;
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(0);
    line->addSpacing(CAPTION_INDENT);
    auto* label = new QLabel(tr(text), this);
    label->setFixedHeight(CAPTION_HEIGHT);
    line->addWidget(label, 0, Qt::AlignLeft);
    column->addLayout(line);
}

void ClWidgetBasicSetting::addButton(const stBasicSettingRow& row, QVBoxLayout* column) {
    auto* button = new QPushButton(this);
    button->setMinimumSize(WIDE_BUTTON_MINIMUM);
    connect(button, &QPushButton::clicked, this, &ClWidgetBasicSetting::slotClicked);
    m_buttons.append(button);
    if (showsName(row)) {
        m_nameButton = button;
        m_nameButton->setAccessibleName(tr(sectionCaption(row.section)));
        showName(UNKNOWN_NAME);
    } else {
        button->setText(tr(row.text));
    }
    auto* line = new QHBoxLayout;
    line->addStretch();
    line->addWidget(button);
    line->addStretch();
    column->addLayout(line);
}

void ClWidgetBasicSetting::showName(const QString& name) {
    // An ampersand in the camera's name is no shortcut.
    m_nameButton->setText(QString(name).replace(u'&', QStringLiteral("&&")));
    m_nameButton->setAccessibleDescription(name);
}

void ClWidgetBasicSetting::showInit(bool /*isPolling*/) {
    showName(UNKNOWN_NAME);
    sendUsbCommand(USB_REQ_NUBO_CMD_GET_CAMERANAME);
}

void ClWidgetBasicSetting::hideEvent(QHideEvent* event) {
    ClWidgetBase::hideEvent(event);
    if (!event->spontaneous()) {
        m_isNameDialogPending = false;
        m_waiting.clear();
    }
}

void ClWidgetBasicSetting::slotClicked() {
    const auto index = m_buttons.indexOf(qobject_cast<QPushButton*>(sender()));
    if (index < 0) {
        return;
    }
    const auto row = static_cast<std::size_t>(index);
    if (showsName(m_rows[row])) {
        m_isNameDialogPending = true;
    }
    m_reads[row].start();
}

void ClWidgetBasicSetting::slotReceiveCommand(const VX_CMD& clCommand) {
    // An answer to the page that was left for this one would open a dialog that nobody asked for.
    if (isAnswerToAnother(clCommand)) {
        return;
    }
    m_waiting.append(clCommand);
    if (m_isHandling) {
        return;
    }
    const QScopedValueRollback handling(m_isHandling, true);
    while (!m_waiting.isEmpty()) {
        handle(m_waiting.takeFirst());
    }
}

void ClWidgetBasicSetting::handle(const VX_CMD& message) {
    if (std::ranges::any_of(m_reads, [&](ClReadChain& reads) { return reads.take(message); })) {
        return;
    }
    const QUuid received = getCommand(message);
    if (received == USB_NUBO_CMD_RESPONSE || received == USB_CMD_ERROR) {
        // Not an stCommandResult: here a click that comes to nothing is reported even when the
        // camera has gone.
        const auto result = message.value(Key::PARAM3).value<unsigned short>();
        handleResult(message.value(Key::PARAM2).toUuid(), result,
                     received == USB_CMD_ERROR || result != USB_ERROR_SUCCESS);
    }
}

bool ClWidgetBasicSetting::isRequestOrCommand(const QUuid& command) const {
    return std::ranges::any_of(m_rows, [&command](const stBasicSettingRow& row) {
        return settingWith(row, &stCameraSetting::request, command) != nullptr ||
               settingWith(row, &stCameraSetting::command, command) != nullptr;
    });
}

void ClWidgetBasicSetting::handleResult(const QUuid& command, unsigned short result,
                                        bool isFailure) {
    if (isFailure) {
        m_isNameDialogPending = false;
        if (isRequestOrCommand(command)) {
            showErrorMsgBox(result);
        }
    } else if (command == USB_NUBO_CMD_SET_CAMERANAME) {
        showName(m_sentName);
    }
}

void ClWidgetBasicSetting::addReads(const stBasicSettingRow& row) {
    ClReadChain& reads = m_reads.emplace_back(this);
    const auto settings = settingsOf(row);
    for (const stCameraSetting& setting : settings) {
        const bool isLast = &setting == &settings.back();
        reads.add({setting.request, setting.answer, [this, &row, isLast](const VX_CMD& answer) {
                       m_answers.insert(getCommand(answer), answer);
                       if (isLast) {
                           finish(row, answer);
                       }
                   }});
    }
}

void ClWidgetBasicSetting::finish(const stBasicSettingRow& row, const VX_CMD& answer) {
    if (showsName(row)) {
        showName(answer.value(Key::PARAM2).toString());
        if (!std::exchange(m_isNameDialogPending, false)) {
            return;
        }
    }
    showDialog(row);
}

void ClWidgetBasicSetting::showDialog(const stBasicSettingRow& row) {
    const int before = visit();
    const std::unique_ptr<ClDialogBase> dialog = row.createDialog(this);
    dialog->setParam(readValues(row));
    const bool isAccepted = ask(*dialog);
    // Messages that wait by now belong to the camera that has been plugged in since; keep them.
    if (before != visit()) {
        return;
    }
    // A double click has read the same setting twice; the second answer is out of date by now.
    m_waiting.removeIf([&row](const VX_CMD& message) {
        return settingWith(row, &stCameraSetting::answer, getCommand(message)) != nullptr;
    });
    if (isAccepted) {
        write(row, dialog->getParam());
    }
}

QVariantList ClWidgetBasicSetting::readValues(const stBasicSettingRow& row) const {
    QVariantList values;
    for (const stCameraSetting& setting : row.settings) {
        const VX_CMD answer = m_answers.value(setting.answer);
        for (auto key = Key::VALUES.begin(); const auto convert : setting.values) {
            if (convert != nullptr) {
                values.append(convert(answer.value(*key++)));
            }
        }
    }
    return values;
}

void ClWidgetBasicSetting::write(const stBasicSettingRow& row, const QVariantList& values) {
    qsizetype written = 0;
    for (const stCameraSetting& setting : row.settings) {
        if (setting.command.isNull()) {
            continue;
        }
        VX_CMD message;
        for (auto key = Key::VALUES.begin(); const auto convert : setting.values) {
            if (convert != nullptr) {
                message.insert(*key++, convert(values.value(written++)));
            }
        }
        if (setting.command == USB_NUBO_CMD_SET_CAMERANAME) {
            m_sentName = message.value(Key::PARAM2).toString();
        }
        sendUsbCommand(setting.command, message);
    }
}
