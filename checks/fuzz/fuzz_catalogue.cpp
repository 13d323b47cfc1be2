// A controller's signals and registers, through everything that lists, filters and sorts them. An input is
// {"registers": metadata, "names": [...], "types": [...], "rw": "...", "length": n} as JSON text, or decisions that
// take the registers of the simulator's cell apart and make up the rest.
#include "checks/fuzz/input.h"
#include "checks/fuzz/ordercheck.h"
#include "checks/fuzz/require.h"
#include "checks/support/scramble.h"
#include "common/mjson.h"
#include "common/registerfilter.h"
#include "tests/fakehost.h"

#include <QSet>

#include <algorithm>

using namespace fuzz;

namespace
{

constexpr int kMostNames = 10; ///< all triples of them are compared
constexpr int kMostRegisters = 12;

/// What a controller publishes, and what a page asks for.
struct Catalogue {
    QJsonValue registers;
    QStringList names; ///< of signals and registers
    QStringList types;
    QString access;
    int length = 1;
};

QStringList textsOf(const QJsonValue& value, int most)
{
    QStringList texts;
    const QJsonArray array = value.toArray();
    for (int i = 0; i < std::min(most, array.size()); ++i) {
        texts.append(array.at(i).toString());
    }
    return texts;
}

QJsonValue atMost(int most, const QJsonValue& registers)
{
    QJsonArray array = registers.toArray();
    while (array.size() > most) {
        array.removeLast();
    }
    return registers.isArray() ? QJsonValue(array) : registers;
}

Catalogue readCatalogue(const QJsonValue& value)
{
    return {atMost(kMostRegisters, value[QLatin1String("registers")]),
            textsOf(value[QLatin1String("names")], kMostNames), textsOf(value[QLatin1String("types")], kMostNames),
            value[QLatin1String("rw")].toString(), value[QLatin1String("length")].toInt(1)};
}

/// A few neighbours among the registers of the simulator's cell.
QJsonArray someRegisters(Dice& dice)
{
    const QJsonArray all = shippedCell().value(QLatin1String("registers")).toArray();
    QJsonArray some;
    const int first = dice.below(all.size());
    for (int i = first; i < std::min(first + kMostRegisters, all.size()); ++i) {
        some.append(all.at(i));
    }
    return some;
}

Catalogue inventCatalogue(Dice& dice)
{
    static const QStringList types = {QStringLiteral("bool"), QStringLiteral("int"), QStringLiteral("float")};
    static const QStringList words = {QStringLiteral("r"), QStringLiteral(" W"), QStringLiteral("rw"), QString()};
    Catalogue catalogue;
    for (int left = dice.below(kMostNames); left > 0; --left) {
        catalogue.names.append(anyText(dice));
    }
    for (int left = dice.below(4); left > 0; --left) {
        catalogue.types.append(dice.oneIn(4) ? anyText(dice) : dice.oneOf(types));
    }
    catalogue.access = dice.oneOf(words);
    catalogue.length = dice.below(20000) - 5000;
    catalogue.registers = scrambled(someRegisters(dice), dice);
    return catalogue;
}

/// Every list is what the controller published for its type, sorted.
void checkSignals(FakeHost& host, const QStringList& names)
{
    static constexpr struct {
        const char* type;
        QStringList (*list)();
    } kLists[] = {{"DO", mJson::GetDO}, {"DI", mJson::GetDI}, {"AO", mJson::GetAO},
                  {"AI", mJson::GetAI}, {"GO", mJson::GetGO}, {"GI", mJson::GetGI}};
    for (const auto& published : kLists) {
        host.io = {{QLatin1String(published.type), names}};
        for (const auto& asked : kLists) {
            const QStringList list = asked.list();
            require(asked.type == published.type ? sortedTexts(list) == sortedTexts(names) : list.isEmpty(),
                    "a list has signals of another type, or not all of its own");
            checkSorted(list);
        }
    }
    host.registerNames = names;
    const QStringList registers = mJson::GetREG();
    require(QSet<QString>(registers.begin(), registers.end()) == QSet<QString>(names.begin(), names.end()),
            "the list of registers lacks one or has a foreign one");
    checkSorted(registers);
}

/// Every text or number in the metadata, as a name may be written.
void collectTexts(const QJsonValue& value, QSet<QString>* texts)
{
    const QJsonArray array = value.toArray();
    for (const QJsonValue element : array) {
        collectTexts(element, texts);
    }
    const QJsonObject object = value.toObject();
    for (const QJsonValue member : object) {
        texts->insert(member.toVariant().toString().trimmed());
    }
}

QStringList united(QStringList a, const QStringList& b)
{
    a += b;
    a.removeDuplicates();
    return sortedTexts(a);
}

/// A list of registers by kind of value: all of them, those that can be written, those that can only be read.
struct Kind {
    QStringList (*all)();
    QStringList (*writable)();
    QStringList (*readable)();
};

constexpr Kind kBool = {mJson::GetREGBool, mJson::GetREGBoolWritable, mJson::GetREGBoolReadable};
constexpr Kind kInteger = {mJson::GetREGInteger, mJson::GetREGIntegerWritable, mJson::GetREGIntegerReadable};
constexpr Kind kFloat = {mJson::GetREGFloat, mJson::GetREGFloatWritable, mJson::GetREGFloatReadable};
constexpr Kind kNumeric = {mJson::GetREGNumeric, mJson::GetREGNumericWritable, mJson::GetREGNumericReadable};

void checkRegisterList(const QStringList& list, const QSet<QString>& published)
{
    checkSorted(list);
    require(QSet<QString>(list.begin(), list.end()).size() == list.size(), "a register is listed twice");
    for (const QString& name : list) {
        require(published.contains(name) && !name.isEmpty(), "a register is listed that was not published");
    }
}

void checkKinds(const QJsonValue& registers)
{
    QSet<QString> published;
    collectTexts(registers, &published);
    for (const Kind& kind : {kBool, kInteger, kFloat, kNumeric}) {
        const QStringList all = kind.all();
        checkRegisterList(all, published);
        const QStringList accessible = united(kind.writable(), kind.readable());
        require(united(all, accessible) == sortedTexts(all), "an access filter lists more than no filter");
    }
    const auto parts = [](QStringList (*integer)(), QStringList (*real)()) { return united(integer(), real()); };
    require(sortedTexts(kNumeric.all()) == parts(kInteger.all, kFloat.all) &&
                sortedTexts(kNumeric.writable()) == parts(kInteger.writable, kFloat.writable) &&
                sortedTexts(kNumeric.readable()) == parts(kInteger.readable, kFloat.readable),
            "numeric registers are not the whole and the floating ones together");
}

/// A list of registers is made of what each register gives alone, and alone it is of one kind and one access.
void checkEachAlone(FakeHost& host, const QJsonArray& registers)
{
    host.registers = registers;
    const QStringList wholeList = sortedTexts(mJson::GetREGNumericWritable());
    QStringList pieces;
    for (const QJsonValue entry : registers) {
        host.registers = QJsonArray{entry};
        pieces = united(pieces, mJson::GetREGNumericWritable());
        int kinds = 0;
        for (const Kind& kind : {kBool, kInteger, kFloat}) {
            kinds += kind.all().size();
            require(kind.writable().isEmpty() || kind.readable().isEmpty(), "a register is read-only and writable");
        }
        require(kinds <= 1, "a register has two kinds of value");
    }
    require(pieces == wholeList, "a register's neighbours change whether it is listed");
    host.registers = registers;
}

void checkFilter(const Catalogue& catalogue)
{
    const QStringList found = registerfilter::filter(catalogue.registers, catalogue.types, catalogue.access);
    const QStringList listed = mJson::GetREGByTypes(catalogue.types, catalogue.access);
    require(united(found, {}) == sortedTexts(listed), "the sorted list is not what the filter found");
    QStringList otherwise;
    for (const QString& type : catalogue.types) {
        otherwise.prepend(QLatin1Char(' ') + type + QLatin1Char('\t'));
    }
    require(registerfilter::filter(catalogue.registers, otherwise, QLatin1Char(' ') + catalogue.access) == found,
            "blanks around the asked words, or their order, change what is found");
    require(united(mJson::GetREGByTypes(catalogue.types), listed) == sortedTexts(mJson::GetREGByTypes(catalogue.types)),
            "an access filter finds more than no filter");
}

void checkLength(const Catalogue& catalogue, const QString& name)
{
    const int length = mJson::GetRegisterLen(name, catalogue.length);
    require(length >= 1 || length == catalogue.length, "a register is shorter than 1");
    require(registerfilter::length(catalogue.registers, name, catalogue.length) == length, "two lengths of a register");
    QSet<QString> published;
    collectTexts(catalogue.registers, &published);
    require(published.contains(name.trimmed()) || length == catalogue.length, "an unknown register has a length");
}

void checkAccessors(const QJsonValue& value, const QString& key)
{
    const QJsonValue member = mJson::getSubValue(value, key);
    require(mJson::hasSubValue(value, key) == (value.isObject() && !member.isUndefined()),
            "a member is there for one accessor and not for the other");
    require(value.isObject() || (member.isNull() && !mJson::hasSubArray(value, key)), "a member of what has none");
    require(mJson::hasSubArray(value, key) ? QJsonValue(mJson::getSubArray(value, key)) == member
                                           : mJson::getSubArray(value, key).isEmpty(),
            "an array member is not the member");
}

void checkRegisters(FakeHost& host, const Catalogue& catalogue)
{
    host.registers = catalogue.registers;
    checkKinds(catalogue.registers);
    checkFilter(catalogue);
    QStringList names = catalogue.names;
    const QJsonArray registers = catalogue.registers.toArray();
    for (const QJsonValue entry : registers) {
        const QJsonObject members = entry.toObject();
        names.append(members.value(QLatin1String("name")).toVariant().toString());
        for (const QString& key : members.keys() + catalogue.names) {
            checkAccessors(entry, key);
        }
    }
    for (const QString& name : qAsConst(names)) {
        checkLength(catalogue, name);
    }
    checkEachAlone(host, registers);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/)
{
    silenceLogs();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FakeHost host;
    const Input input(data, size);
    ByteDice dice = input.dice();
    const Catalogue catalogue = input.holdsDecisions() ? inventCatalogue(dice) : readCatalogue(input.json());
    checkOrder(catalogue.names, catalogue.length);
    checkSignals(host, catalogue.names);
    checkRegisters(host, catalogue);
    return 0;
}
