// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/CommandIdentifiers.h"
#include "protocol/CommandMessage.h"

#include <QList>
#include <QSize>

/// The identifiers of one use of the stream settings, written out.
struct stStreamUse {
    const char* name;
    QUuid getSize;
    QUuid sizeAnswer;
    QUuid setSize;
    QUuid getRate;
    QUuid rateAnswer;
    QUuid setRate;
};

inline const stStreamUse REC{
    "recording",
    USB_REQ_NUBO_CMD_GET_REC_IMAGESIZE,
    USB_RES_NUBO_CMD_GET_REC_IMAGESIZE,
    USB_NUBO_CMD_SET_REC_IMAGESIZE,
    USB_REQ_NUBO_CMD_GET_REC_FRAMERATE,
    USB_RES_NUBO_CMD_GET_REC_FRAMERATE,
    USB_NUBO_CMD_SET_REC_FRAMERATE,
};

inline const stStreamUse LIVE{
    "live view",
    USB_REQ_NUBO_CMD_GET_LIVE_IMAGESIZE,
    USB_RES_NUBO_CMD_GET_LIVE_IMAGESIZE,
    USB_NUBO_CMD_SET_LIVE_IMAGESIZE,
    USB_REQ_NUBO_CMD_GET_LIVE_FRAMERATE,
    USB_RES_NUBO_CMD_GET_LIVE_FRAMERATE,
    USB_NUBO_CMD_SET_LIVE_FRAMERATE,
};
