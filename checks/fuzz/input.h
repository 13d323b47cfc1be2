#ifndef CHECKS_FUZZ_INPUT_H
#define CHECKS_FUZZ_INPUT_H

#include "checks/support/dice.h"

#include <QByteArray>
#include <QJsonObject>
#include <QJsonValue>

#include <cstddef>
#include <cstdint>

namespace fuzz
{

/// Decisions out of bytes: one byte for up to 256 possibilities, two for more. When the bytes are used up, 0.
class ByteDice : public Dice
{
public:
    ByteDice(const std::uint8_t* data, std::size_t size) : m_next(data), m_end(data + size) {}
    int below(int bound) override;

private:
    int nextByte() { return m_next != m_end ? *m_next++ : 0; }

    const std::uint8_t* m_next;
    const std::uint8_t* m_end;
};

/// An input of a fuzzer is what a reader gets, as it is; or, behind the byte '~', with which no JSON text begins,
/// decisions by which the fuzzer makes up something itself.
class Input
{
public:
    Input(const std::uint8_t* data, std::size_t size) : m_data(data), m_size(size) {}

    bool holdsDecisions() const { return m_size > 0 && m_data[0] == '~'; }
    /// The bytes behind the mark; all bytes when there is none.
    ByteDice dice() const;
    QByteArray text() const { return {reinterpret_cast<const char*>(m_data), static_cast<int>(m_size)}; }
    /// The input as any JSON value, not only an object or array; undefined when it is none.
    QJsonValue json() const;

private:
    const std::uint8_t* m_data;
    std::size_t m_size;
};

/// The cell file that the simulator starts with; a missing one ends the process.
const QJsonObject& shippedCell();

} // namespace fuzz

#endif
