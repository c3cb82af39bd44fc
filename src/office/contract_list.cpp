#include "office/contract_list.h"

#include "common/amount_text.h"
#include "common/date_text.h"
#include "common/errors.h"
#include "store/contract_codes.h"
#include "store/contract_summary.h"

#include <QFileInfo>
#include <QHash>

#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

// All in milliseconds.
constexpr int sliceLength = 50;    ///< of reading before the window is looked after again
constexpr int lockPatience = 1500; ///< from the beginning of a reading
constexpr int lockPause = 100;     ///< between two tries

QStringList cellsOf(const ContractSummary &summary)
{
    return {QString::number(summary.items),
            FormatImporto(summary.budget),
            QString::number(summary.payments),
            FormatImporto(summary.paid),
            FormatImporto(summary.available()),
            summary.lastPayment.isValid() ? FormatData(summary.lastPayment) : QString(),
            {}};
}

/** In one line: "Manca un valore che è necessario. Saldoro.mdb, Fatture, Importo, pagamento 2". */
QString noteOf(const SaldoroError &error)
{
    QStringList places{QFileInfo(error.detail(u"File"_s)).fileName(), error.detail(u"Tabella"_s),
                       error.detail(u"Campo"_s)};
    if (const QString payment = error.detail(u"Pagamento"_s); !payment.isEmpty())
        places.append(u"pagamento "_s + payment);
    places.removeAll(QString());
    return error.problem() + u' ' + places.join(u", "_s);
}

} // namespace

ContractList::ContractList(TextTable &table)
    : m_table(table)
{
    table.setHeader({u"Codice"_s, u"Voci"_s, u"Spesa"_s, u"Pagamenti"_s, u"Pagato"_s,
                     u"Disponibilità"_s, u"Ultimo pagamento"_s, u"Nota"_s});
    table.setRightAligned({ContractColumn::Voci, ContractColumn::Spesa, ContractColumn::Pagamenti,
                           ContractColumn::Pagato, ContractColumn::Disponibilita});
    m_next.setSingleShot(true);
    connect(&m_next, &QTimer::timeout, this, &ContractList::readSome);
}

QString ContractList::currentCode() const
{
    return m_table.row() == 0 ? QString() : m_table.text(m_table.row(), ContractColumn::Codice);
}

void ContractList::setCurrentCode(const QString &code)
{
    for (int row = 1; row < m_table.rows(); ++row) {
        if (m_table.text(row, ContractColumn::Codice) == code)
            m_table.setRow(row);
    }
}

void ContractList::read(const QString &root)
{
    const QString current = currentCode();
    QHash<QString, QStringList> before;
    for (int row = 1; row < m_table.rows(); ++row) {
        QStringList &cells = before[m_table.text(row, ContractColumn::Codice)];
        for (int column = ContractColumn::Voci; column < ContractColumn::Count; ++column)
            cells.append(m_table.text(row, column));
    }
    const QStringList codes = ContractCodes(root);
    m_folder = ContractsFolder(root);
    m_waiting.clear();
    m_locked.clear();
    {
        const TextTable::BulkChange change(m_table);
        m_table.setRows(1);
        m_table.setRows(1 + static_cast<int>(codes.size()));
        for (const QString &code : codes) {
            m_waiting.append(static_cast<int>(m_waiting.size()) + 1);
            m_table.setText(m_waiting.last(), ContractColumn::Codice, code);
            writeRow(m_waiting.last(), before.value(code));
        }
    }
    m_table.setRow(codes.isEmpty() ? 0 : 1);
    setCurrentCode(current);
    m_since.start();
    m_next.start(0);
}

void ContractList::readSome()
{
    QElapsedTimer slice;
    slice.start();
    if (m_waiting.isEmpty())
        m_waiting = std::exchange(m_locked, {});
    while (!m_waiting.isEmpty() && slice.elapsed() < sliceLength)
        readContract(m_waiting.takeFirst());
    const int all = m_table.rows() - 1;
    emit progressed(all - static_cast<int>(m_waiting.size() + m_locked.size()), all);
    if (!m_waiting.isEmpty() || !m_locked.isEmpty())
        m_next.start(m_waiting.isEmpty() ? lockPause : 0);
}

void ContractList::readContract(int row)
{
    const QString code = m_table.text(row, ContractColumn::Codice);
    try {
        writeRow(row, cellsOf(SummariseContract(m_folder + u'/' + code, 0)));
    } catch (const SaldoroError &error) {
        const auto *database = dynamic_cast<const DatabaseError *>(&error);
        if (database && database->fault() == DatabaseFault::Locked &&
            m_since.elapsed() < lockPatience) {
            m_locked.append(row);
            return;
        }
        QStringList cells(ContractColumn::Nota);
        cells.last() = noteOf(error);
        writeRow(row, cells);
    }
}

void ContractList::writeRow(int row, const QStringList &cells)
{
    for (qsizetype cell = 0; cell < cells.size(); ++cell)
        m_table.setText(row, static_cast<int>(cell) + ContractColumn::Voci, cells[cell]);
}

} // namespace saldoro
