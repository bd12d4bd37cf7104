#pragma once

#include <QByteArray>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>

/// Turns the bytes of an input into choices, from the first byte on. At its end every choice is the
/// first one, so what draws in a loop asks isEmpty().
class ByteReader
{
public:
    ByteReader(const std::uint8_t *data, std::size_t size)
        : m_data(data)
        , m_left(size)
    { }

    bool isEmpty() const { return m_left == 0; }

    std::uint8_t byte()
    {
        if (m_left == 0)
            return 0;
        --m_left;
        return *m_data++;
    }

    /// -128 to 127.
    int signedByte() { return static_cast<int>(bits<std::int8_t>()); }

    bool flag() { return (byte() & 1) != 0; }

    /// 0 to @p end - 1, for up to 256 choices.
    int below(int end) { return byte() % end; }

    template <typename Values>
    const auto &oneOf(const Values &values)
    {
        return *std::next(std::begin(values), below(static_cast<int>(std::size(values))));
    }

    /// A number of any bits.
    template <typename Number>
    Number bits()
    {
        const QByteArray raw = bytes(sizeof(Number));
        Number number{};
        std::memcpy(&number, raw.constData(), static_cast<std::size_t>(raw.size()));
        return number;
    }

    /// Up to @p size bytes; fewer at the end.
    QByteArray bytes(std::size_t size)
    {
        const std::size_t count = size < m_left ? size : m_left;
        QByteArray taken(reinterpret_cast<const char *>(m_data), static_cast<int>(count));
        m_data += count;
        m_left -= count;
        return taken;
    }

    QByteArray rest() { return bytes(m_left); }

private:
    const std::uint8_t *m_data;
    std::size_t m_left;
};
