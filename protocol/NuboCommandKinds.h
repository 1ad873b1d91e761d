// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/TextPackets.h"

#include <QDateTime>
#include <QSize>

#include <algorithm>
#include <array>

// The kinds of commands, and the encodings of their values: what many commands share stands here
// once.

/// A plain packet with the code @p Code and up to five parameters.
template <unsigned short Code>
class ClNuboPacket : public ClNuboCommand {
public:
    static constexpr unsigned short CODE = Code;

    explicit ClNuboPacket(const std::array<unsigned int, PARAM_COUNT>& params = {})
        : ClNuboCommand(Code, params[0], params[1], params[2], params[3], params[4], 0, 0,
                        PLAIN_LENGTH) {}
};

/// Asks for values; they come in the parameters of the answer.
template <unsigned short Code>
class ClNuboGet : public ClNuboPacket<Code> {};

/// Orders something that has no argument.
template <unsigned short Code>
class ClNuboAction : public ClNuboPacket<Code> {};

/// Carries a number.
template <unsigned short Code>
class ClNuboSetNumber : public ClNuboPacket<Code> {
public:
    explicit ClNuboSetNumber(unsigned int number) : ClNuboPacket<Code>({number}) {}
};

/// Switches something off (1) or on (2).
template <unsigned short Code>
class ClNuboSetSwitch : public ClNuboPacket<Code> {
public:
    explicit ClNuboSetSwitch(bool isOn) { this->setParam(1, this->boolToValue(isOn)); }
};

/// Asks for what a packet of class @p Form carries as text.
template <class Form, unsigned short Code>
class ClNuboGetText : public Form {
public:
    static constexpr unsigned short CODE = Code;
    ClNuboGetText() : Form({}, Code) {}
};

/// Carries it.
template <class Form, unsigned short Code>
class ClNuboSetText : public Form {
public:
    static constexpr unsigned short CODE = Code;
    explicit ClNuboSetText(const QString& text) : Form(text, Code) {}
};

template <unsigned short Code>
using ClNuboGetString = ClNuboGetText<ClNuboCommandString, Code>;
template <unsigned short Code>
using ClNuboSetString = ClNuboSetText<ClNuboCommandString, Code>;
template <unsigned short Code>
using ClNuboGetIpv4 = ClNuboGetText<ClNuboCommandIpv4, Code>;
template <unsigned short Code>
using ClNuboSetIpv4 = ClNuboSetText<ClNuboCommandIpv4, Code>;

/// Picture sizes in pixels; a size's number on the wire is its place in the list, counted from 1.
inline constexpr std::array REC_SIZES{QSize{1920, 1080}, QSize{1280, 720}, QSize{640, 480}};
inline constexpr std::array LIVE_SIZES{QSize{800, 480}, QSize{320, 240}};

/// Asks for a picture size out of @p Sizes.
template <unsigned short Code, const auto& Sizes>
class ClNuboGetSize : public ClNuboGet<Code> {
public:
    /// An invalid size for a number outside the list.
    [[nodiscard]] QSize getSize() const {
        const unsigned int number = this->param(1);
        return number >= 1 && number <= Sizes.size() ? Sizes[number - 1] : QSize();
    }
};

/// Carries a picture size out of @p Sizes; any other size goes as 0.
template <unsigned short Code, const auto& Sizes>
class ClNuboSetSize : public ClNuboPacket<Code> {
public:
    explicit ClNuboSetSize(const QSize& size) : ClNuboPacket<Code>({numberOf(size)}) {}

private:
    static unsigned int numberOf(const QSize& size) {
        const auto found = std::ranges::find(Sizes, size);
        return found == Sizes.end() ? 0 : static_cast<unsigned int>(found - Sizes.begin() + 1);
    }
};

/// @p time, or the current date and time when it is invalid.
[[nodiscard]] QDateTime validOrNow(const QDateTime& time);
/// Parameters of a packet: year * 10000 + month * 100 + day, and hour * 10000 + minute * 100 +
/// second.
[[nodiscard]] std::array<unsigned int, ClNuboCommand::PARAM_COUNT> packDateTime(
    const QDateTime& time);
/// The way back; invalid when the numbers make no date and time.
[[nodiscard]] QDateTime unpackDateTime(unsigned int date, unsigned int time);
/// As in "2014/03/09 07:05:01".
[[nodiscard]] QString dateTimeToText(const QDateTime& time);
/// Invalid when the text has another form.
[[nodiscard]] QDateTime textToDateTime(const QString& text);

/// The Latin-1 code of the letter of @p country at @p index, 0 when there is none.
[[nodiscard]] unsigned int packLetter(const QString& country, qsizetype index);
/// The letters in the low bytes, up to the first that is 0.
[[nodiscard]] QString unpackCountry(unsigned int first, unsigned int second);
