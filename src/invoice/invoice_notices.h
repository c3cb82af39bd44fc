#pragma once

#include "controls/notice.h"
#include "invoice/allocation_table.h"
#include "invoice/payment_record.h"

#include <QHash>

namespace saldoro {

/** The amount of an allocation that is being typed, or was typed last. */
struct TypedAllocation
{
    QString code;
    QString typed;
    bool isOpen = false;
};

/** All that the notices of an invoice form are about: what it holds at a moment. */
struct InvoiceState
{
    PaymentRecord shown = {}; ///< the texts as they stand, plain form included
    QString focus = {};       ///< object name of the control that has the focus
    QMap<Amount, AmountPast> past = {};

    bool isMeantNew = false; ///< opened by "Nuovo"
    bool isListed = true;    ///< whether the main screen's list, read last, has its number
    QString note = {};       ///< as it was loaded
    QString contractor = {}; ///< the creditor that a new payment to a company starts with

    QString dateBox = {};  ///< object name of the box of the invoice's date
    QString dateLeft = {}; ///< see DateBox::leftWith()
    QString mandateDateLeft = {};
    QStringList cutFields = {}; ///< object names of the fields whose text was cut

    const TextTable *allocations = nullptr;
    const TextTable *overview = nullptr;
    QHash<QString, QString> storedAllocations = {}; ///< amounts by code, as they were loaded
    TypedAllocation typedAllocation = {};
    QString allocationTotal = {};
};

/** What the form tells about itself. An amount beyond the currency range is a notice, too. */
Notices InvoiceNotices(const InvoiceState &state);

/** Adds what there is to tell of the invoice's amounts and totals, and what the text that is being
 *  typed is worth. Amounts count as they will once the field that has the focus is left. Throws
 *  OverflowError when leaving it would. */
void TellAmounts(const InvoiceState &state, Notices &all);

} // namespace saldoro
