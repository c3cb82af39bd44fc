#include "bench_payment.h"

#include "common/amount_text.h"
#include "common/date_text.h"
#include "invoice/allocation_table.h"
#include "invoice/payment_save.h"
#include "overview/payment_opening_and_deletion.h"
#include "store/archive_paths.h"
#include "store/mandate_note.h"

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

qint64 scaled(const QString &amount)
{
    return ImportoDaTesto(QString(amount)).scaled();
}

void appendAllocation(TextTable &grid, int item)
{
    const int row = grid.rows();
    grid.setRows(row + 1);
    grid.setText(row, AllocationColumn::Cod, u"V%1"_s.arg(item, 4, 10, QChar(u'0')));
    grid.setText(row, AllocationColumn::Descrizione, u"Voce di spesa numero %1"_s.arg(item));
    grid.setText(row, AllocationColumn::Importo, u"61,00"_s);
}

} // namespace

BenchPayment::BenchPayment(const ProgramValues &values, qint32 number, int allocations)
    : m_values(values)
    , m_number(number)
    , m_noteKey(VoceMandato(values, number).toUtf8())
    , m_grid(AllocationColumn::Count)
{
    m_record.kind = CreditorKind::Professional;
    m_record.number = number;
    m_record.creditore = u"ing. Niccolò D'Amìco"_s;
    m_record.nFat = u"12/2025"_s;
    m_record.del = u"15/03/2025"_s;
    m_record.descrizione = u"Direzione lavori, secondo acconto"_s;
    m_record.memo = u"Pratica n. 7\r\nVisto dell'ufficio"_s;
    m_record.mandato = u"1208"_s;
    m_record.mandatoDell = u"20/03/2025"_s;
    for (const AmountField &field : ProfessionalAmounts().fields)
        m_record.amounts.setText(field.amount, u"1.000,00"_s);
    for (int item = 1; item <= allocations; ++item)
        appendAllocation(m_grid, item);
}

void BenchPayment::save()
{
    SavePagamento(m_values, m_record, m_grid);
}

void BenchPayment::remove()
{
    DeletePayment(m_values, m_number);
}

qint64 BenchPayment::readCode() const
{
    return BareFile(CodesPath(m_values)).readAll("SELECT * FROM Funzioni ORDER BY CodInt");
}

void BenchPayment::writeLedger(BareFile &ledger)
{
    constexpr qint64 amount = 10000000;
    ledger
        .prepare("INSERT INTO Fatture (AziProf, Npag, Creditore, NFat, Del, Memo, Descrizione,"
                 " Aliquota, AliquotaRA, Importo, ImportoIVA, ImportoPrest, Contributo, CassaPrev,"
                 " ImportoRA, AltriImporti01) VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)")
        .run(QByteArray("P"), qint64{m_number}, m_record.creditore, m_record.nFat,
             QByteArray("2025-03-15"), m_record.memo, m_record.descrizione, amount, amount, amount,
             amount, amount, amount, amount, amount, amount);
    m_paymentRow = ledger.lastRowId();
    m_allocationRows.clear();
    BareStatement insert =
        ledger.prepare("INSERT INTO Spese (RelNpag, Cod, Descrizione, Importo) VALUES (?,?,?,?)");
    for (int row = 1; row < m_grid.rows(); ++row) {
        insert.run(qint64{m_number}, m_grid.text(row, AllocationColumn::Cod),
                   m_grid.text(row, AllocationColumn::Descrizione),
                   scaled(m_grid.text(row, AllocationColumn::Importo)));
        m_allocationRows.push_back(ledger.lastRowId());
    }
}

void BenchPayment::writeNote(BareFile &contract)
{
    contract
        .prepare("INSERT INTO SchedaProgetto (Voce, Funzione, Descri, Stringa) VALUES (?,?,?,?)")
        .run(m_noteKey, qint64{0}, u"Pag. N.%1 - "_s.arg(m_number) + m_record.creditore,
             QByteArray("Mandato nr.1208 del 20/03/2025"));
    m_noteRow = contract.lastRowId();
}

void BenchPayment::saveBare()
{
    {
        BareFile ledger(LedgerPath(m_values));
        ledger.readAll("SELECT * FROM Fatture WHERE AziProf = 'P' ");
        ledger.readAll(
            ("SELECT * FROM Spese WHERE RelNpag = " + QByteArray::number(m_number)).constData());
        writeLedger(ledger);
    }
    readCode();
    BareFile contract(ContractPath(m_values));
    contract.readAll(("SELECT * FROM SchedaProgetto WHERE Voce = '" + m_noteKey + "'").constData());
    writeNote(contract);
}

void BenchPayment::removeBare()
{
    readCode();
    {
        BareFile contract(ContractPath(m_values));
        contract.readAll("SELECT * FROM SchedaProgetto ORDER BY VOCE");
        contract.prepare("DELETE FROM SchedaProgetto WHERE rowid = ?").run(m_noteRow);
    }
    BareFile ledger(LedgerPath(m_values));
    ledger.readAll("SELECT * FROM Fatture ORDER BY Npag ");
    ledger.prepare("DELETE FROM Fatture WHERE rowid = ?").run(m_paymentRow);
    ledger.readAll("SELECT * FROM Spese ORDER BY RelNpag");
    BareStatement removeAllocation = ledger.prepare("DELETE FROM Spese WHERE rowid = ?");
    for (const qint64 row : m_allocationRows)
        removeAllocation.run(row);
}

void BenchPayment::put()
{
    BareFile ledger(LedgerPath(m_values), Durability::None);
    writeLedger(ledger);
    BareFile contract(ContractPath(m_values), Durability::None);
    writeNote(contract);
}

void BenchPayment::clear()
{
    BareFile ledger(LedgerPath(m_values), Durability::None);
    ledger.prepare("DELETE FROM Fatture WHERE Npag = ?").run(qint64{m_number});
    ledger.prepare("DELETE FROM Spese WHERE RelNpag = ?").run(qint64{m_number});
    BareFile(ContractPath(m_values), Durability::None)
        .prepare("DELETE FROM SchedaProgetto WHERE Voce = ?")
        .run(m_noteKey);
}

} // namespace saldoro
