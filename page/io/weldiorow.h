#ifndef PAGE_IO_WELDIOROW_H
#define PAGE_IO_WELDIOROW_H

#include "page/io/portrules.h"
#include "widgets/namelistmodel.h"

#include <QSharedPointer>

class EnableButton;
class ListComboBox;
class QLabel;

/// A signal's row on the page: its widgets, which the table owns and which live as long as that. Copied by value.
struct WeldIoRow {
    const IoRowTemplate* signal = nullptr;
    QLabel* nameLabel = nullptr;
    ListComboBox* typeCombo = nullptr;
    ListComboBox* portCombo = nullptr;
    ListComboBox* biasCombo = nullptr;    ///< element of the register, from 1
    EnableButton* enableButton = nullptr; ///< null for a signal without a switch

    int typeIndex() const;
    AssignedSignal value() const;

    /// Offers other ports and keeps the one that is chosen if it is among them, else chooses none; its element stays
    /// as far as the register has it. Silent.
    void offerPorts(const QSharedPointer<NameListModel>& ports) const;

    /// Offers no ports and chooses none. Silent.
    void clearPorts() const;

    /// Shows an assignment with the ports of its type; a port that is not among them becomes none. Silent.
    void show(const Assignment& assignment, const QSharedPointer<NameListModel>& ports) const;

    /// Lets an element be chosen when a register is: preferred (from 1; below 1: the one that is shown), at most as
    /// many as the register has. Silent.
    void offerElements(int preferred) const;
};

AssignedSignals valuesOf(const std::vector<WeldIoRow>& rows);

#endif
