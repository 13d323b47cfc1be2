#include "page/io/weldiorow.h"

#include "common/registerlengths.h"
#include "widgets/enablebutton.h"
#include "widgets/listcombobox.h"

#include <QLabel>
#include <QSignalBlocker>

namespace
{

/// An empty list, for a type whose ports the host has not told yet.
QSharedPointer<NameListModel> noPorts()
{
    return QSharedPointer<NameListModel>::create(QStringList());
}

/// Chooses the entry of exactly that text, else the empty one.
void choose(ListComboBox* combo, const QString& text)
{
    const QSignalBlocker silent(combo);
    combo->setCurrentIndex(qMax(0, combo->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive)));
}

} // namespace

int WeldIoRow::typeIndex() const
{
    return typeCombo->currentIndex();
}

AssignedSignal WeldIoRow::value() const
{
    return {signal, nameLabel->text(),
            Assignment{serverTypeOf(*signal->portKind, typeIndex()), portCombo->currentText(),
                       qMax(biasCombo->currentIndex() + 1, 1),
                       enableButton != nullptr && enableButton->getIsEnabled()}};
}

void WeldIoRow::offerPorts(const QSharedPointer<NameListModel>& ports) const
{
    if (!portCombo->offers(ports)) {
        const QString chosen = portCombo->currentText();
        portCombo->setNames(ports);
        choose(portCombo, chosen);
    }
    offerElements(0);
}

void WeldIoRow::clearPorts() const
{
    portCombo->setNames(noPorts());
    offerElements(0);
}

void WeldIoRow::show(const Assignment& assignment, const QSharedPointer<NameListModel>& ports) const
{
    {
        const QSignalBlocker silent(typeCombo);
        typeCombo->setCurrentIndex(typeIndexOf(*signal->portKind, assignment.serverType));
    }
    // Nothing to search for when the page is shown again as it was.
    if (!portCombo->offers(ports) || portCombo->currentText() != assignment.port) {
        portCombo->setNames(ports);
        choose(portCombo, assignment.port);
    }
    offerElements(assignment.element);
    if (enableButton != nullptr) {
        enableButton->setIsEnabled(assignment.isOn, false);
    }
}

void WeldIoRow::offerElements(int preferred) const
{
    const QString port = portCombo->currentText().trimmed();
    const bool isRegister = typeIndex() == signal->portKind->registerIndex() && !port.isEmpty();
    const int length = isRegister ? registerlengths::lengthOf(port) : 1;
    const int wanted = preferred >= 1 ? preferred : biasCombo->currentIndex() + 1;
    const QSignalBlocker silent(biasCombo);
    biasCombo->setNumbers(length);
    biasCombo->setCurrentIndex(qBound(1, wanted, length) - 1);
    biasCombo->setVisible(isRegister);
}

AssignedSignals valuesOf(const std::vector<WeldIoRow>& rows)
{
    AssignedSignals values;
    values.reserve(rows.size());
    for (const WeldIoRow& row : rows) {
        values.push_back(row.value());
    }
    return values;
}
