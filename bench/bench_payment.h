#pragma once

#include "bare_file.h"
#include "common/program_values.h"
#include "controls/text_table.h"
#include "invoice/payment_record.h"

#include <vector>

namespace saldoro {

/** A payment to a professional that follows the last one of an archive. */
class BenchPayment
{
public:
    BenchPayment(const ProgramValues &values, qint32 number, int allocations);

    /** Saves it as the invoice form does. */
    void save();
    /** Deletes it as the main screen does. */
    void remove();

    /** The statements of save(), reading ones and writing ones, with bare calls. */
    void saveBare();
    /** The statements of remove() with bare calls; put() came before. */
    void removeBare();

    /** Writes the rows without reading anything or waiting for the disk. */
    void put();
    /** Clears away the rows, however they came. */
    void clear();

private:
    void writeLedger(BareFile &ledger);
    void writeNote(BareFile &contract);
    qint64 readCode() const;

    ProgramValues m_values;
    qint32 m_number;
    QByteArray m_noteKey;
    PaymentRecord m_record;
    TextTable m_grid;
    qint64 m_paymentRow = 0;
    qint64 m_noteRow = 0;
    std::vector<qint64> m_allocationRows;
};

} // namespace saldoro
