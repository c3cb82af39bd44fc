#include "office/contract_list.h"

#include "common/amount_text.h"
#include "common/date_text.h"
#include "common/errors.h"
#include "store/contract_folders.h"
#include "store/listed_contract.h"

#include <QFileInfo>

#include <numeric>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

// All in milliseconds.
constexpr int sliceLength = 100; ///< of reading before the window is looked after again
constexpr int pause = 20;        ///< while all that are left are locked
constexpr int patience = 1500;   ///< with a lock, from the beginning of a reading

QStringList cellsOf(const QString &code, const ListedContract &summary)
{
    return {code,
            QString::number(summary.items),
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
    QStringList places{QFileInfo(error.detail(Detail::File)).fileName(),
                       error.detail(Detail::Table), error.detail(Detail::Field)};
    if (const QString payment = error.detail(Detail::Payment); !payment.isEmpty())
        places.append(u"pagamento "_s + payment);
    places.removeAll(QString());
    return error.problem() + u' ' + places.join(u", "_s);
}

} // namespace

ContractList::ContractList(TextTable &table, QObject *parent)
    : QObject(parent)
    , m_table(table)
{
    table.setHeader({u"Codice"_s, u"Voci"_s, u"Spesa"_s, u"Pagamenti"_s, u"Pagato"_s,
                     u"Disponibilità"_s, u"Ultimo pagamento"_s, u"Nota"_s});
    table.setRightAligned({1, 2, 3, 4, 5});
    m_next.setSingleShot(true);
    connect(&m_next, &QTimer::timeout, this, &ContractList::readSome);
}

QString ContractList::currentCode() const
{
    return m_table.row() == 0 ? QString() : m_table.text(m_table.row(), 0);
}

QString ContractList::currentNote() const
{
    return m_table.row() == 0 ? QString() : m_table.text(m_table.row(), m_table.columns() - 1);
}

void ContractList::setCurrentCode(const QString &code)
{
    for (int row = 1; row < m_table.rows(); ++row) {
        if (m_table.text(row, 0) == code)
            m_table.setRow(row);
    }
}

void ContractList::read(const QString &root)
{
    if (root != m_root)
        m_chosen.clear();
    else if (!currentCode().isEmpty())
        m_chosen = currentCode();
    const QStringList codes = ContractCodes(root);
    QStringList before;
    for (int row = 1; row < m_table.rows(); ++row)
        before.append(m_table.text(row, 0));
    if (const TextTable::BulkChange change(m_table); codes != before || root != m_root) {
        m_table.setRows(1);
        m_table.setRows(1 + static_cast<int>(codes.size()));
        for (int row = 1; row < m_table.rows(); ++row)
            m_table.setText(row, 0, codes[row - 1]);
        // When the current contract is gone no other becomes current: the user's next action would
        // hit the wrong one.
        m_table.setRow(codes.isEmpty() || !m_chosen.isEmpty() ? 0 : 1);
        setCurrentCode(m_chosen);
    }
    m_root = root;
    m_waiting.resize(codes.size());
    std::iota(m_waiting.begin(), m_waiting.end(), 1);
    m_since.start();
    m_next.start(0);
}

void ContractList::readSome()
{
    QElapsedTimer slice;
    slice.start();
    const qsizetype before = m_waiting.size();
    for (qsizetype left = before; left > 0 && slice.elapsed() < sliceLength; --left) {
        if (const int row = m_waiting.takeFirst(); !readContract(row))
            m_waiting.append(row);
    }
    const int all = m_table.rows() - 1;
    emit progressed(all - static_cast<int>(m_waiting.size()), all);
    if (!m_waiting.isEmpty())
        m_next.start(m_waiting.size() < before ? 0 : pause);
}

bool ContractList::readContract(int row)
{
    const QString code = m_table.text(row, 0);
    QStringList cells{code};
    try {
        cells = cellsOf(code, ReadListedContract(ContractFolder(m_root, code), 0));
    } catch (const SaldoroError &error) {
        const auto *database = dynamic_cast<const DatabaseError *>(&error);
        if (database && database->fault() == DatabaseFault::Locked && m_since.elapsed() < patience)
            return false;
        cells.resize(m_table.columns());
        cells.last() = noteOf(error);
    }
    for (int column = 0; column < cells.size(); ++column)
        m_table.setText(row, column, cells[column]);
    return true;
}

} // namespace saldoro
