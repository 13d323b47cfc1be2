#include "widgets/enablebutton.h"
#include "widgets/formfields.h"

#include <QComboBox>
#include <QJsonArray>
#include <QLineEdit>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>

namespace
{

constexpr FieldSpec kFields[] = {
    {"i", "integer", Read::Integer, 11},  {"t", "truncated", Read::Truncated, 12},
    {"b", "boolean", Read::Bool, 1},      {"s", "text", Read::Text},
    {"n", "nearest", Read::Choice, 1, 3}, {"c", "choice", Read::Choice, 0, 3, 2},
    {"f", "fixed", Read::Fixed, 1},
};

struct Form : QWidget {
    QSpinBox integer{this};
    QSpinBox truncated{this};
    EnableButton boolean{this};
    QLineEdit text{this};
    QComboBox nearest{this};
    QComboBox choice{this};
    QComboBox fixed{this};
    FormFields fields;

    Form() : fields(named(), kFields) {}

    const QWidget* named()
    {
        for (QSpinBox* box : {&integer, &truncated}) {
            box->setRange(-1000, 1000);
            box->setValue(77);
        }
        for (QComboBox* box : {&nearest, &choice, &fixed}) {
            box->addItems({"a", "b", "c"});
        }
        QWidget* const widgets[] = {&integer, &truncated, &boolean, &text, &nearest, &choice, &fixed};
        for (std::size_t i = 0; i < std::size(widgets); ++i) {
            widgets[i]->setObjectName(kFields[i].widget);
        }
        return this;
    }
};

} // namespace

class TestFormFields : public QObject
{
    Q_OBJECT

private slots:
    void reading_data();
    void reading();
    void loadingIsSilent();
};

void TestFormFields::reading_data()
{
    QTest::addColumn<QJsonValue>("stored");
    QTest::addColumn<QJsonArray>("saved");
    const auto row = [](const char* name, const QJsonValue& stored, const QJsonArray& saved) {
        QTest::newRow(name) << stored << saved;
    };
    // integer, truncated, boolean, text, nearest entry, entry or the third one
    row("whole", 300, {300, 300, false, "", 2, 2});
    row("an entry", 1, {1, 1, false, "", 1, 1});
    row("beyond the entries", 3, {3, 3, false, "", 2, 2});
    row("the first entry", 0, {0, 0, false, "", 0, 0});
    row("fraction", 300.7, {0, 300, false, "", 0, 0});
    row("negative fraction", -0.9, {0, 0, false, "", 0, 0});
    row("below the range", -5000, {-1000, -1000, false, "", 0, 2});
    row("beyond int", 1e12, {0, 1000, false, "", 0, 0});
    row("far below int", -1e300, {0, -1000, false, "", 0, 0});
    row("true", true, {0, 0, true, "", 0, 0});
    row("text", "300", {0, 0, false, "300", 0, 0});
    row("null", QJsonValue::Null, {0, 0, false, "", 0, 0});
    row("missing", QJsonValue::Undefined, {0, 0, false, "", 0, 2});
}

void TestFormFields::reading()
{
    QFETCH(QJsonValue, stored);
    QFETCH(QJsonArray, saved);
    Form form;
    QJsonObject node;
    QJsonObject expected{{"f", 1}};
    for (int i = 0; i < saved.size(); ++i) {
        if (!stored.isUndefined()) {
            node.insert(kFields[i].key, stored);
        }
        expected.insert(kFields[i].key, saved.at(i));
    }
    node.insert("f", stored);
    form.fields.load(node);
    QCOMPARE(form.fixed.currentIndex(), 1);
    QCOMPARE(form.fields.save(), expected);
    // A set that is missing is another thing than a set without members.
    form.fields.reset();
    QCOMPARE(form.fields.save(),
             (QJsonObject{{"i", 11}, {"t", 12}, {"b", true}, {"s", ""}, {"n", 1}, {"c", 0}, {"f", 1}}));
}

void TestFormFields::loadingIsSilent()
{
    Form form;
    QSignalSpy number(&form.integer, QOverload<int>::of(&QSpinBox::valueChanged));
    QSignalSpy flip(&form.boolean, &EnableButton::enabled);
    QSignalSpy text(&form.text, &QLineEdit::textChanged);
    QSignalSpy index(&form.nearest, QOverload<int>::of(&QComboBox::currentIndexChanged));
    form.fields.load({{"i", 5}, {"b", true}, {"s", "x"}, {"n", 2}});
    QCOMPARE(number.size() + flip.size() + text.size() + index.size(), 0);
    form.integer.setValue(9);
    QCOMPARE(number.size(), 1);
    // What is typed and can't be saved is not left standing.
    form.integer.selectAll();
    QTest::keyClicks(&form.integer, "-");
    form.fields.save();
    QCOMPARE(form.integer.text(), QString("9"));
}

QTEST_MAIN(TestFormFields)
#include "tst_formfields.moc"
