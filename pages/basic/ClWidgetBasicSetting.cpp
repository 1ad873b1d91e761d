// SPDX-License-Identifier: MIT
#include "pages/basic/ClWidgetBasicSetting.h"

#include "pages/common/PageParts.h"
#include "protocol/CommandIdentifiers.h"
#include "protocol/ResultCodes.h"
#include "settings/SettingTable.h"
#include "ui/ClDialogBase.h"
#include "ui/ClLabelSepalator.h"

#include <QHBoxLayout>
#include <QHideEvent>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>
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

using Identifier = QUuid stSettingExchange::*;

/// Whether @p command is that identifier of one of the row's exchanges.
bool hasExchange(const stBasicSettingRow& row, Identifier kind, const QUuid& command) {
    return !command.isNull() && std::ranges::any_of(row.exchanges, [&](const stRowExchange& each) {
        return each.exchange.*kind == command;
    });
}

std::span<const stRowExchange> exchangesOf(const stBasicSettingRow& row) {
    const auto* end = std::ranges::find_if(
        row.exchanges, [](const stRowExchange& each) { return each.exchange.request.isNull(); });
    return {row.exchanges.begin(), end};
}

/// The settings whose values travel together by @p exchange, in the order of these.
std::vector<stSetting> settingsOf(const stSettingExchange& exchange) {
    std::vector<stSetting> found;
    std::ranges::copy_if(settings(), std::back_inserter(found), [&](const stSetting& each) {
        return each.exchange.request == exchange.request;
    });
    return found;
}

/// @p value in just the type that messages carry; what is missing becomes the type's default.
QVariant typed(SettingKind kind, const QVariant& value) {
    switch (kind) {
        case SettingKind::Switch:
            return value.toBool();
        case SettingKind::Text:
            return value.toString();
        case SettingKind::Clock:
            return value.toDateTime();
        default:
            return value.toUInt();
    }
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
    // The keys go from button to button, and the area scrolls along.
    area->setFocusPolicy(Qt::NoFocus);
    // The window's picture shows through.
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
        showName(UNKNOWN_VALUE);
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
    showName(UNKNOWN_VALUE);
    sendUsbCommand(SettingExchange::CAMERA_NAME.request);
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
        return hasExchange(row, &stSettingExchange::request, command) ||
               hasExchange(row, &stSettingExchange::write, command);
    });
}

void ClWidgetBasicSetting::handleResult(const QUuid& command, unsigned short result,
                                        bool isFailure) {
    if (isFailure) {
        m_isNameDialogPending = false;
        if (isRequestOrCommand(command)) {
            showErrorMsgBox(result);
        }
    } else if (command == SettingExchange::CAMERA_NAME.write) {
        showName(m_sentName);
    }
}

void ClWidgetBasicSetting::addReads(const stBasicSettingRow& row) {
    ClReadChain& reads = m_reads.emplace_back(this);
    const auto exchanges = exchangesOf(row);
    for (const stRowExchange& each : exchanges) {
        const bool isLast = &each == &exchanges.back();
        reads.add({each.exchange, [this, &row, isLast](const VX_CMD& answer) {
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
        return hasExchange(row, &stSettingExchange::answer, getCommand(message));
    });
    if (isAccepted) {
        write(row, dialog->getParam());
    }
}

QVariantList ClWidgetBasicSetting::readValues(const stBasicSettingRow& row) const {
    QVariantList values;
    for (const auto& [exchange, convert] : exchangesOf(row)) {
        const VX_CMD answer = m_answers.value(exchange.answer);
        for (const stSetting& setting : settingsOf(exchange)) {
            const QVariant value = answer.value(Key::VALUES[setting.place]);
            values.append(convert != nullptr ? convert(value) : typed(setting.kind, value));
        }
    }
    return values;
}

void ClWidgetBasicSetting::write(const stBasicSettingRow& row, const QVariantList& values) {
    qsizetype written = 0;
    for (const stRowExchange& each : exchangesOf(row)) {
        const stSettingExchange& exchange = each.exchange;
        if (exchange.write.isNull()) {
            continue;
        }
        VX_CMD message;
        for (const stSetting& setting : settingsOf(exchange)) {
            message.insert(Key::VALUES[setting.place],
                           typed(setting.kind, values.value(written++)));
        }
        if (exchange.write == SettingExchange::CAMERA_NAME.write) {
            m_sentName = message.value(Key::PARAM2).toString();
        }
        sendUsbCommand(exchange.write, message);
    }
}
