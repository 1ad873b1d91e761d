// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <array>

class ClWireReader;
class ClWireWriter;

/// A packet of the camera protocol: 32 bytes, little-endian.
///
///     offset  width  field
///          0      2  packet type     0 in commands, 2 in data packets
///          2      2  transaction id  chosen by the tool, echoed by the camera
///          4      4  length          of the whole packet in bytes
///          8      2  code            command code, or the result in an answer
///         10      2  reserved        0
///         12   5x4  param1 to param5
///
/// Subclasses change the tail (strings in place of parameters) or just fill in code and parameters.
/// A command object lives for one transaction on the USB thread: it serialises the request with
/// getData() and takes in the answer with setData(). Neither can fail: what is missing in a short
/// packet reads as 0.
class ClNuboCommand {
public:
    static constexpr int PARAM_COUNT = 5;
    static constexpr unsigned int PLAIN_LENGTH = 32;  ///< bytes of a packet without strings

    ClNuboCommand() = default;
    explicit ClNuboCommand(const QByteArray& packet);
    ClNuboCommand(const char* packet, int size);  ///< @p size in bytes

    /// A command with every field given. An @p id of 0 draws a fresh transaction id.
    ClNuboCommand(unsigned short code, unsigned int param1, unsigned int param2,
                  unsigned int param3, unsigned int param4, unsigned int param5, unsigned short id,
                  unsigned short type, unsigned int length);

    virtual ~ClNuboCommand() = default;

    virtual void setData(const QByteArray& packet);
    [[nodiscard]] virtual QByteArray getData() const;
    /// The result in a parsed answer: 0 or one of the NUBO_CMD_ERROR_ codes.
    [[nodiscard]] virtual unsigned short getError() const { return m_code; }
    /// The camera's booleans are 1 for off and 2 for on; whatever else it sends reads as off.
    [[nodiscard]] virtual bool valueToBool(unsigned int value) const { return value == 2; }
    [[nodiscard]] virtual unsigned int boolToValue(bool on) const { return on ? 2 : 1; }

    [[nodiscard]] unsigned short type() const { return m_type; }
    [[nodiscard]] unsigned short id() const { return m_id; }
    [[nodiscard]] unsigned int length() const { return m_length; }
    [[nodiscard]] unsigned short code() const { return m_code; }
    /// Parameter @p number, counted from 1 to PARAM_COUNT as in the drawing above.
    [[nodiscard]] unsigned int param(int number) const {
        return m_param[static_cast<std::size_t>(number - 1)];
    }

protected:
    ClNuboCommand(const ClNuboCommand&) = default;
    ClNuboCommand(ClNuboCommand&&) = default;
    ClNuboCommand& operator=(const ClNuboCommand&) = default;
    ClNuboCommand& operator=(ClNuboCommand&&) = default;

    // The header is what stands from the type to the reserved word.
    void readHeader(ClWireReader& reader);
    /// @p length of the whole packet in bytes.
    void writeHeader(ClWireWriter& writer, unsigned int length) const;
    void setParam(int number, unsigned int value) {
        m_param[static_cast<std::size_t>(number - 1)] = value;
    }

    unsigned short m_type = 0;
    unsigned short m_id = 0;
    unsigned int m_length = PLAIN_LENGTH;
    unsigned short m_code = 0;
    std::array<unsigned int, PARAM_COUNT> m_param{};
};
