// SPDX-License-Identifier: MIT
#pragma once

#include "pages/network/NetworkState.h"
#include "protocol/CommandIdentifiers.h"
#include "protocol/CommandMessage.h"
#include "tests/pages/CameraMessages.h"
#include "tests/support/BoxUser.h"
#include "tests/support/PageUser.h"
#include "ui/ClWidgetBase.h"

#include <QSignalSpy>
#include <QTest>

#include <memory>
#include <utility>

/// Has the network pages know what they know when the program has just started. @return no parent
inline QWidget* startFresh() {
    g_bIsWifiON = false;
    g_ulWifiMode = WIFI_MODE_UNKNOWN;
    g_bIsShowError = false;
    return nullptr;
}

/// A sent message as a text: the name of the command, and its arguments with their types.
inline QString asText(const QVariantMap& message) {
    QStringList words{getUsbCommand(message.value(QStringLiteral("CMD")).toUuid())};
    for (auto item = message.cbegin(); item != message.cend(); ++item) {
        if (item.key().startsWith(QStringLiteral("PARAM"))) {
            words.append(QString::fromLatin1(item.value().typeName()));
            words.append(item.value().toString());
        }
    }
    return words.join(u' ');
}

/// What the user reads after PageBench::failInManyWays().
inline const QStringList FAILURE_TEXTS{
    QStringLiteral("Parameter setting failed"), QStringLiteral("Exec failed, unknown error"),
    QStringLiteral("Exec failed, unknown error"), QStringLiteral("Exec failed, unknown error")};

/// A page on its own, with a user before it, in a program that has just started; what would go to
/// the camera ends in a spy.
template <class Page>
class PageBench {
    std::unique_ptr<Page> m_page;

public:
    explicit PageBench(QSize size = {600, 466})
        : PageBench(std::make_unique<Page>(startFresh()), size) {}
    /// @param created after startFresh().
    explicit PageBench(std::unique_ptr<Page> created, QSize size = {600, 466})
        : m_page(std::move(created)),
          page(*m_page),
          sent(&page, &ClWidgetBase::sigSendCommand),
          user(page) {
        page.resize(size);
        page.show();
    }

    /// The messages sent since it was last asked.
    QStringList takeSent() {
        QStringList texts;
        for (const QVariantList& arguments : std::as_const(sent)) {
            texts.append(asText(arguments.first().toMap()));
        }
        sent.clear();
        return texts;
    }

    /// The commands of all messages since takeSent().
    [[nodiscard]] QList<QUuid> sentCommands() const {
        QList<QUuid> commands;
        for (const QVariantList& arguments : sent) {
            commands.append(getCommand(arguments.first().toMap()));
        }
        return commands;
    }

    /// A value that another page of the program has asked for.
    void answer(const QUuid& command, const QVariant& value) {
        page.slotReceiveCommand(valueAnswer(command, value));
    }
    void succeed(const QUuid& command) { respond(command, 0); }
    void respond(const QUuid& command, unsigned short code) {
        page.slotReceiveCommand(plainResult(USB_NUBO_CMD_RESPONSE, command, code));
    }
    void fail(const QUuid& command, unsigned short code) {
        page.slotReceiveCommand(plainResult(USB_CMD_ERROR, command, code));
    }
    /// Has @p command refused, lost and done.
    void endInEveryWay(const QUuid& command) {
        respond(command, 0xFFFF);
        fail(command, 0xEF03);
        succeed(command);
    }
    /// Has @p command refused and lost, in ways of which the user reads FAILURE_TEXTS.
    void failInManyWays(const QUuid& command) {
        respond(command, 0xFFFB);
        fail(command, 0xEF01);
        fail(command, 0xEF05);
        respond(command, 0xFFFF);
        fail(command, 0xEF00);  // the camera has gone: that shows by itself
    }

    BoxUser boxes;
    Page& page;
    QSignalSpy sent;
    PageUser user;
};
