// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

/// Takes an input apart from front to back. Numbers are little-endian; what is missing at the end
/// reads as 0.
class FuzzInput {
public:
    FuzzInput(const std::uint8_t* data, std::size_t size)
        : m_data(reinterpret_cast<const char*>(data)),
          m_size(static_cast<qsizetype>(size)) {}

    [[nodiscard]] bool isEmpty() const { return m_size == 0; }

    template <class Number>
    [[nodiscard]] Number number() {
        std::array<char, sizeof(Number)> wire{};
        std::copy_n(m_data, std::min<qsizetype>(sizeof(Number), m_size), wire.begin());
        skip(sizeof(Number));
        return qFromLittleEndian<Number>(wire.data());
    }

    /// The next @p count bytes, or what there is of them.
    [[nodiscard]] QByteArray bytes(qsizetype count) {
        const QByteArray taken(m_data, std::min(count, m_size));
        skip(count);
        return taken;
    }

private:
    void skip(qsizetype count) {
        const qsizetype present = std::min(count, m_size);
        m_data += present;
        m_size -= present;
    }

    const char* m_data;
    qsizetype m_size;
};
