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

/** What notices have to know of an amount field's past. */
struct AmountPast
{
    QString before; ///< what it read when it was entered, before it was turned into plain form
    QString left;   ///< what it read when it was left last, before it was shown in display form
    bool isRewritten = false; ///< by the user, since it read @ref before

    /** To be called on entry with what the field reads. Keeps @ref before if the user has typed
     *  nothing since the last entry: then only the form of the amount has changed. */
    void enter(const QString &text)
    {
        if (before.isEmpty() || isRewritten)
            *this = {text, {}, false};
    }
};

/** All that the notices of an invoice form are about: what it holds at a moment. */
struct InvoiceState
{
    PaymentRecord shown = {}; ///< the texts as they stand, plain form included
    QString focus = {};       ///< object name of the control that has the focus
    QMap<Amount, AmountPast> past = {};

    qint32 askedNumber = 0;  ///< of the payment that was asked for last; 0 for its own
    bool isMeantNew = false; ///< opened by "Nuovo"
    /** Whether the main screen lists a payment of this number; until it has told so, whether the
     *  ledger held one when the form was opened. */
    bool isListed = true;
    QString note = {};       ///< as it was loaded
    bool offersNone = false; ///< see CreditorFields::offersNone()
    QString contractor = {}; ///< the creditor that a new payment to a company starts with

    QString dateBox = {};  ///< object name of the box of the invoice's date
    QString dateLeft = {}; ///< see DateBox::leftWith()
    QString mandateDateLeft = {};
    QStringList cutFields = {}; ///< object names of the fields whose text was cut

    const TextTable *allocations = nullptr;
    const TextTable *overview = nullptr;
    QMultiHash<QString, QString> storedAllocations = {}; ///< amounts by code, as they were loaded
    TypedAllocation typedAllocation = {};
    QString allocationTotal = {};
};

/** What the form tells about itself. An amount beyond the currency range is a notice, too. */
Notices InvoiceNotices(const InvoiceState &state);

} // namespace saldoro
