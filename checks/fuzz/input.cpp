#include "checks/fuzz/input.h"

#include "checks/fuzz/leaks.h"
#include "checks/fuzz/require.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

namespace fuzz
{

int ByteDice::below(int bound)
{
    const int number = bound <= 256 ? nextByte() : nextByte() * 256 + nextByte();
    return number % bound;
}

ByteDice Input::dice() const
{
    const std::size_t mark = holdsDecisions() ? 1 : 0;
    return {m_data + mark, m_size - mark};
}

QJsonValue Input::json() const
{
    // Qt's reader leaks an object or array whose member comes twice.
    const LeaksIgnored ignored;
    // It takes objects and arrays only, so the value is put into an array.
    const QJsonArray array = QJsonDocument::fromJson('[' + text() + ']').array();
    return array.size() == 1 ? array.first() : QJsonValue(QJsonValue::Undefined);
}

const QJsonObject& shippedCell()
{
    static const QJsonObject cell = [] {
        QFile file(QStringLiteral(SHIPPED_CELL));
        require(file.open(QIODevice::ReadOnly), "the simulator's cell file can't be read: " SHIPPED_CELL);
        QJsonObject root = QJsonDocument::fromJson(file.readAll()).object();
        require(!root.isEmpty(), "the simulator's cell file is no JSON object: " SHIPPED_CELL);
        return root;
    }();
    return cell;
}

} // namespace fuzz
