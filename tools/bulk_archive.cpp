#include "bulk_archive.h"

#include "common/archive_folders.h"
#include "platform/machine_path.h"
#include "store/code_lookups.h"

#include <QDate>

#include <array>
#include <memory>
#include <random>
#include <sqlite3.h>
#include <stdexcept>

namespace saldoro {

namespace {

using namespace Qt::StringLiterals;

struct Closer
{
    void operator()(sqlite3 *file) const { sqlite3_close(file); }
    void operator()(sqlite3_stmt *statement) const { sqlite3_finalize(statement); }
};

/** One database file within one transaction. */
class BulkFile
{
public:
    explicit BulkFile(const QString &archivePath)
    {
        sqlite3 *file = nullptr;
        const int result = sqlite3_open_v2(MachinePath(archivePath).toUtf8().constData(), &file,
                                           SQLITE_OPEN_READWRITE, nullptr);
        m_file.reset(file);
        check(result == SQLITE_OK);
        run("BEGIN IMMEDIATE");
    }

    sqlite3 *handle() const { return m_file.get(); }
    void check(bool worked) const
    {
        if (!worked) {
            throw std::runtime_error(sqlite3_errmsg(m_file.get()));
        }
    }
    void commit() { run("COMMIT"); }

private:
    void run(const char *sql)
    {
        check(sqlite3_exec(m_file.get(), sql, nullptr, nullptr, nullptr) == SQLITE_OK);
    }

    std::unique_ptr<sqlite3, Closer> m_file;
};

/** Inserts rows of the same fields into one table of a file. */
class BulkInsert
{
public:
    BulkInsert(BulkFile &file, const char *sql)
        : m_file(file)
    {
        sqlite3_stmt *statement = nullptr;
        m_file.check(sqlite3_prepare_v2(file.handle(), sql, -1, &statement, nullptr) == SQLITE_OK);
        m_statement.reset(statement);
    }

    /** A row of texts and whole numbers, in the order of the statement's fields. */
    template <typename... Values>
    void add(const Values &...values)
    {
        int position = 0;
        (bind(++position, values), ...);
        m_file.check(sqlite3_step(m_statement.get()) == SQLITE_DONE);
        sqlite3_reset(m_statement.get());
    }

private:
    void bind(int position, qint64 value)
    {
        m_file.check(sqlite3_bind_int64(m_statement.get(), position, value) == SQLITE_OK);
    }
    void bind(int position, const QString &text)
    {
        const QByteArray utf8 = text.toUtf8();
        m_file.check(sqlite3_bind_text(m_statement.get(), position, utf8.constData(),
                                       static_cast<int>(utf8.size()),
                                       SQLITE_TRANSIENT) == SQLITE_OK);
    }

    BulkFile &m_file;
    std::unique_ptr<sqlite3_stmt, Closer> m_statement;
};

constexpr qint64 Euro = 10000;
constexpr qint64 Cent = 100;

/** Numbers that are the same on every machine, unlike those of the standard distributions. */
class Chance
{
public:
    explicit Chance(quint32 seed)
        : m_engine(seed)
    {
    }
    /** From 0 up to @p bound, which is left out. */
    int below(int bound) { return static_cast<int>(m_engine() % static_cast<quint32>(bound)); }

private:
    std::mt19937 m_engine;
};

QString itemCode(int item)
{
    return QStringLiteral("V%1").arg(item, 4, 10, QLatin1Char('0'));
}

QString itemDescription(int item)
{
    return QStringLiteral("Voce di spesa numero %1 del quadro economico").arg(item);
}

QString creditorName(int number)
{
    static constexpr std::array<QStringView, 6> Names{u"Impresa Sant'Elìa Costruzioni S.r.l.",
                                                      u"ing. Niccolò D'Amìco",
                                                      u"Cooperativa La Quercia",
                                                      u"Studio associato Brè & Forlì",
                                                      u"arch. Perla Dell'Orsa",
                                                      u"Scavi Valle Bruna S.n.c."};
    const auto name = static_cast<std::size_t>(number) % Names.size();
    return Names[name].toString() + QStringLiteral(" (%1)").arg(number);
}

QString noteText(int payment)
{
    return payment % 3 == 0 ? QString()
                            : QStringLiteral("Pratica n. %1\r\nVisto dell'ufficio").arg(payment);
}

/** The allocations of one payment: as many as @p count, adding up to @p total. */
void addAllocations(BulkInsert &allocations, Chance &chance, const BulkSize &size, int payment,
                    qint64 total, int count)
{
    const int firstItem = chance.below(size.costItems);
    const qint64 share = count == 0 ? 0 : total / count / Cent * Cent;
    for (int i = 0; i < count; ++i) {
        const int item = (firstItem + i) % size.costItems + 1;
        const qint64 amount = i + 1 < count ? share : total - share * (count - 1);
        allocations.add(qint64{payment}, itemCode(item), itemDescription(item), amount);
    }
}

/** A payment of either kind with figures that agree; its total in ten-thousandths. */
qint64 addPayment(BulkInsert &payments, Chance &chance, int number)
{
    const bool professional = chance.below(2) == 0;
    const qint64 fee = (1 + chance.below(50000)) * Euro;
    const qint64 contribution = professional ? fee * 4 / 100 : 0;
    const qint64 fund = professional ? fee * 2 / 100 : 0;
    const qint64 taxable = fee + contribution + fund;
    const qint64 tax = taxable * 22 / 100;
    const qint64 withheld = professional ? (fee + contribution) * 20 / 100 : 0;
    const qint64 other = professional ? chance.below(200) * Euro : 0;
    const QDate day = QDate(2020, 1, 1).addDays(chance.below(2000));
    payments.add(professional ? u"P"_s : u"A"_s, qint64{number}, creditorName(chance.below(400)),
                 QString::number(chance.below(9000) + 1), day.toString(Qt::ISODate),
                 noteText(number), QStringLiteral("Pagamento n. %1").arg(number), 22 * Euro,
                 taxable, tax, 20 * Euro, fee, contribution, fund, withheld, other);
    return taxable + tax + other;
}

void fillLedger(const ProgramValues &values, const BulkSize &size)
{
    BulkFile file(LedgerPath(values));
    BulkInsert payments(
        file, "INSERT INTO Fatture (AziProf, Npag, Creditore, NFat, Del, Memo, Descrizione,"
              " Aliquota, Importo, ImportoIVA, AliquotaRA, ImportoPrest, Contributo, CassaPrev,"
              " ImportoRA, AltriImporti01) VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)");
    BulkInsert allocations(
        file, "INSERT INTO Spese (RelNpag, Cod, Descrizione, Importo) VALUES (?,?,?,?)");
    Chance chance(size.seed);
    for (int number = 1; number <= size.payments; ++number) {
        const qint64 total = addPayment(payments, chance, number);
        const int count =
            size.allocations / size.payments + (number <= size.allocations % size.payments ? 1 : 0);
        addAllocations(allocations, chance, size, number, total, count);
    }
    file.commit();
}

void fillContract(const ProgramValues &values, const BulkSize &size)
{
    // Asked for before the file is taken: the key of a note holds the mapped code.
    const QString keyStart = CodiceEsterno(values, u"P97"_s) + u'_';
    BulkFile file(ContractPath(values));
    BulkInsert items(file, "INSERT INTO UltimaPerVariante (Voce, Descri, Importo) VALUES (?,?,?)");
    for (int item = 1; item <= size.costItems; ++item) {
        items.add(itemCode(item), itemDescription(item), (item * 7919 % 100000) * Euro);
    }
    BulkInsert notes(
        file, "INSERT INTO SchedaProgetto (Voce, Funzione, Descri, Stringa) VALUES (?,?,?,?)");
    for (int number = 1; number <= size.mandateNotes; ++number) {
        notes.add(keyStart + QString::number(number), qint64{0},
                  QStringLiteral("Pag. N.%1 - creditore").arg(number),
                  QStringLiteral("Mandato nr.%1 del 15/03/2025").arg(1000 + number));
    }
    file.commit();
}

} // namespace

void FillArchive(const ArchiveBuilder &archive, const BulkSize &size)
{
    fillLedger(archive.values(), size);
    fillContract(archive.values(), size);
}

} // namespace saldoro
