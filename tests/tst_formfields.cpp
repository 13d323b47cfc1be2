#include "widgets/enablebutton.h"
#include "widgets/formfields.h"

#include <QComboBox>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>

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
    QTest::addColumn<int>("integer");
    QTest::addColumn<int>("truncated");
    QTest::addColumn<bool>("boolean");
    const auto row = [](const char* name, const QJsonValue& stored, int integer, int truncated, bool boolean) {
        QTest::newRow(name) << stored << integer << truncated << boolean;
    };
    row("whole", 300, 300, 300, false);
    row("fraction", 300.7, 0, 300, false);
    row("negative fraction", -0.9, 0, 0, false);
    row("clamped to the range", 5000, 1000, 1000, false);
    row("below the range", -5000, -1000, -1000, false);
    row("beyond int", 1e12, 0, 1000, false);
    row("far below int", -1e300, 0, -1000, false);
    row("true", true, 0, 0, true);
    row("text", "300", 0, 0, false);
    row("null", QJsonValue::Null, 0, 0, false);
    row("missing", QJsonValue::Undefined, 0, 0, false);
    row("object", QJsonObject{{"a", 1}}, 0, 0, false);
}

namespace
{

constexpr FieldSpec kFields[] = {
    {"i", "integer", Read::Integer},
    {"t", "truncated", Read::Truncated},
    {"b", "boolean", Read::Bool},
    {"f", "fixed", Read::Fixed, 1},
};

struct Form : QWidget {
    QSpinBox integer{this};
    QSpinBox truncated{this};
    EnableButton boolean{this};
    QComboBox fixed{this};

    Form()
    {
        for (QSpinBox* box : {&integer, &truncated}) {
            box->setRange(-1000, 1000);
            box->setValue(77);
        }
        fixed.addItems({"a", "b"});
        integer.setObjectName("integer");
        truncated.setObjectName("truncated");
        boolean.setObjectName("boolean");
        fixed.setObjectName("fixed");
    }
};

} // namespace

void TestFormFields::reading()
{
    QFETCH(QJsonValue, stored);
    QFETCH(int, integer);
    QFETCH(int, truncated);
    QFETCH(bool, boolean);
    Form form;
    const FormFields fields(&form, kFields);
    QJsonObject node;
    if (!stored.isUndefined()) {
        node = {{"i", stored}, {"t", stored}, {"b", stored}, {"f", stored}};
    }
    fields.load(node);
    QCOMPARE(form.fixed.currentIndex(), 1);
    QCOMPARE(fields.save(), (QJsonObject{{"i", integer}, {"t", truncated}, {"b", boolean}, {"f", 1}}));
}

void TestFormFields::loadingIsSilent()
{
    Form form;
    const FormFields fields(&form, kFields);
    QSignalSpy number(&form.integer, QOverload<int>::of(&QSpinBox::valueChanged));
    QSignalSpy flip(&form.boolean, &EnableButton::enabled);
    QSignalSpy index(&form.fixed, QOverload<int>::of(&QComboBox::currentIndexChanged));
    fields.load({{"i", 5}, {"t", 6}, {"b", true}, {"f", 0}});
    QCOMPARE(number.size() + flip.size() + index.size(), 0);
    QCOMPARE(form.integer.value(), 5);
    form.integer.setValue(9);
    QCOMPARE(number.size(), 1);
}

QTEST_MAIN(TestFormFields)
#include "tst_formfields.moc"
