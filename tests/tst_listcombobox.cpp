#include "widgets/listcombobox.h"
#include "widgets/uiscale_popup.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

namespace
{

/// Counts what is asked of its entries.
class CountingNames : public NameListModel
{
public:
    using NameListModel::NameListModel;
    mutable int reads = 0;

    QVariant data(const QModelIndex& index, int role) const override
    {
        ++reads;
        return NameListModel::data(index, role);
    }
};

QStringList manyNames()
{
    QStringList names;
    for (int i = 1; i <= 1000; ++i) {
        names.append(QStringLiteral("DO%1").arg(i));
    }
    return names;
}

} // namespace

class TestListComboBox : public QObject
{
    Q_OBJECT

private slots:
    void offersWhatAPlainOneDoes();
    void readsNoEntriesUntilOpened();
    void opensItsList();
};

void TestListComboBox::offersWhatAPlainOneDoes()
{
    const QStringList names{"DO1", "DO10", "do1", "DO1"};
    ListComboBox combo;
    QComboBox plain;
    plain.addItems(QStringList{""} + names);
    combo.setNames(names);
    QCOMPARE(combo.count(), plain.count());
    for (int i = 0; i < plain.count(); ++i) {
        QCOMPARE(combo.itemText(i), plain.itemText(i));
    }
    for (const char* text : {"", "DO1", "do1", "Do1", "DO"}) {
        QCOMPARE(combo.findText(text), plain.findText(text));
        QCOMPARE(combo.findText(text, Qt::MatchStartsWith), plain.findText(text, Qt::MatchStartsWith));
    }
    combo.setCurrentText("DO10");
    QCOMPARE(combo.currentIndex(), 2);

    // Filled again: silent, back at the empty entry; nothing is filled in unless the names changed.
    const QSignalSpy fillings(combo.model(), &QAbstractItemModel::modelReset);
    const QSignalSpy spy(&combo, QOverload<int>::of(&QComboBox::currentIndexChanged));
    combo.setNames(names);
    QVERIFY(fillings.isEmpty() && combo.currentText().isEmpty());
    combo.setNames(QStringList{"DO2"});
    QVERIFY(fillings.size() == 1 && combo.count() == 2);
    QVERIFY(spy.isEmpty());
    QVERIFY2(combo.view()->findChildren<QItemSelectionModel*>().size() <= 1, "the lists of earlier times are kept");
}

void TestListComboBox::readsNoEntriesUntilOpened()
{
    const auto names = QSharedPointer<CountingNames>::create(manyNames());
    QWidget page;
    ListComboBox shown(&page);
    ListComboBox hidden(&page);
    hidden.hide();
    for (ListComboBox* combo : {&shown, &hidden}) {
        combo->setNames(names);
        UiScale::configureComboBoxPopup(combo, 5);
    }
    const QSize before = shown.sizeHint();
    page.show();
    page.setStyleSheet(QStringLiteral("QComboBox{combobox-popup:0;}"));
    for (ListComboBox* combo : {&shown, &hidden}) {
        combo->setFont(QFont(combo->font().family(), 20));
    }
    QTest::qWait(0);
    ListComboBox few(&page);
    few.addItem("Bus");
    few.setFont(shown.font());
    few.setStyleSheet(QStringLiteral("QComboBox{padding:1px;}"));
    UiScale::configureComboBoxPopup(&few, 5);
    QVERIFY2(few.findChildren<QAbstractItemView*>().isEmpty(), "neither font nor style is a reason to make the list");
    QVERIFY(shown.sizeHint().height() > before.height()); // the font took effect
    shown.setMinimumContentsLength(30);
    QVERIFY(shown.sizeHint().width() > before.width() && shown.minimumSizeHint() == shown.sizeHint());
    QVERIFY2(names->reads < 100, qPrintable(QString::number(names->reads)));
    // Opened, it measures one entry for all of them, and reads those that are seen.
    names->reads = 0;
    shown.showPopup();
    QTest::qWait(0);
    QVERIFY2(names->reads > 0 && names->reads < 1000, qPrintable(QString::number(names->reads)));
}

void TestListComboBox::opensItsList()
{
    ListComboBox combo;
    combo.setNames(manyNames());
    QComboBox plain;
    for (QComboBox* each : {static_cast<QComboBox*>(&combo), &plain}) {
        each->setStyleSheet("QComboBox{combobox-popup:0;}QAbstractItemView::item{min-height:50px;}");
        each->show();
        UiScale::configureComboBoxPopup(each, 5);
    }
    QApplication::setFont(QFont(combo.font().family(), 20), "QComboBox");
    QSignalSpy highlighted(&combo, QOverload<int>::of(&QComboBox::highlighted));
    combo.showPopup();
    QVERIFY(combo.view()->isVisible());
    QCOMPARE(combo.view()->font(), plain.view()->font());
    QTest::keyClick(combo.view(), Qt::Key_Down);
    QCOMPARE(highlighted.last().at(0).toInt(), 1);
    QTest::keyClick(combo.view(), Qt::Key_Return);
    QCOMPARE(combo.currentText(), QString("DO1"));
    QVERIFY2(combo.view()->sizeHintForRow(0) >= 50, "a finger hits an entry");
    QWheelEvent wheel({1, 1}, {1, 1}, {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&combo, &wheel);
    QCOMPARE(combo.currentText(), QString("DO1"));
    // Opened before, and another list since: a typed letter is searched for in the new one.
    combo.setNames(QStringList{"DI7"});
    QTest::keyClicks(&combo, "di");
    QCOMPARE(combo.currentText(), QString("DI7"));
    combo.setNames(QStringList{"DI8"});
    combo.showPopup();
    QCOMPARE(combo.view()->model(), combo.model());
    // A font that comes when the list is closed again counts when it opens.
    const auto rowHeight = [&combo] { return combo.view()->visualRect(combo.view()->currentIndex()).height(); };
    const int height = rowHeight();
    combo.hidePopup();
    combo.setFont(QFont(combo.font().family(), 60));
    combo.showPopup();
    QVERIFY(rowHeight() > height);
    // Too many to be laid out.
    combo.hidePopup();
    combo.setNumbers(2000000000);
    combo.showPopup();
    QVERIFY(!combo.view()->isVisible());
}

QTEST_MAIN(TestListComboBox)
#include "tst_listcombobox.moc"
