// Sorting and filtering 10,000 names.

#include "bench/benchtable.h"
#include "common/mjson.h"
#include "common/registerfilter.h"

#include <QCollator>
#include <QJsonArray>
#include <QJsonObject>
#include <QRandomGenerator>

#include <algorithm>

namespace
{

QStringList shuffledNames()
{
    QStringList names;
    const char* prefix[] = {"DO", "R_int", "GO", "Weld_Reg"};
    for (int i = 0; i < 10000; ++i) {
        names.append(QLatin1String(prefix[i % 4]) + QString::number(i));
    }
    QRandomGenerator random(1);
    std::shuffle(names.begin(), names.end(), random);
    return names;
}

QJsonArray metadata(const QStringList& names)
{
    QJsonArray registers;
    const char* types[] = {"bool", "int16", "float", "uint32"};
    const char* access[] = {"rw", "ro", "w"};
    for (int i = 0; i < names.size(); ++i) {
        registers.append(
            QJsonObject{{"name", names.at(i)}, {"type", types[i % 4]}, {"rw", access[i % 3]}, {"len", 1 + i % 8}});
    }
    return registers;
}

} // namespace

void addCatalogueRows(BenchTable& table)
{
    const QStringList names = shuffledNames();
    const Contestant collator = repeated(QStringLiteral("sorted by QCollator, numeric"), [names] {
        QCollator order(QLocale::English);
        order.setNumericMode(true);
        QStringList copy = names;
        std::sort(copy.begin(), copy.end(), order);
    });
    table.row(repeated(QStringLiteral("10,000 names in natural order"), [names] { mJson::naturalSort(names); }),
              collator, 0.5);
    const QJsonValue registers = metadata(names);
    table.row(repeated(QStringLiteral("10,000 registers filtered and sorted"),
                       [registers] {
                           QStringList found = registerfilter::filter(
                               registers, {QStringLiteral("int16"), QStringLiteral("uint32")}, QStringLiteral("w"));
                           found.removeDuplicates();
                           mJson::naturalSort(found);
                       }),
              collator, 1.0);
}
