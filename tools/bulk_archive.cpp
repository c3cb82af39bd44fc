#include "bulk_archive.h"

#include "bare_file.h"
#include "common/archive_folders.h"
#include "store/mandate_note.h"

#include <QDate>

#include <array>
#include <random>

namespace saldoro {

namespace {

using namespace Qt::StringLiterals;

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
void addAllocations(BareStatement &allocations, Chance &chance, const BulkSize &size, int payment,
                    qint64 total, int count)
{
    const int firstItem = chance.below(size.costItems);
    const qint64 share = count == 0 ? 0 : total / count / Cent * Cent;
    for (int i = 0; i < count; ++i) {
        const int item = (firstItem + i) % size.costItems + 1;
        const qint64 amount = i + 1 < count ? share : total - share * (count - 1);
        allocations.run(qint64{payment}, itemCode(item), itemDescription(item), amount);
    }
}

/** A payment of either kind with figures that agree; its total in ten-thousandths. */
qint64 addPayment(BareStatement &payments, Chance &chance, int number)
{
    const bool professional = chance.below(2) == 0;
    const qint64 fee = (1 + chance.below(50000)) * Euro;
    const qint64 contribution = professional ? fee * 4 / 100 : 0;
    const qint64 fund = professional ? fee * 2 / 100 : 0;
    const qint64 taxable = fee + contribution + fund;
    const qint64 vat = taxable * 22 / 100;
    const qint64 withheld = professional ? (fee + contribution) * 20 / 100 : 0;
    const qint64 other = professional ? chance.below(200) * Euro : 0;
    const QDate day = QDate(2020, 1, 1).addDays(chance.below(2000));
    payments.run(professional ? u"P"_s : u"A"_s, qint64{number}, creditorName(chance.below(400)),
                 QString::number(chance.below(9000) + 1), day.toString(Qt::ISODate),
                 noteText(number), QStringLiteral("Pagamento n. %1").arg(number), 22 * Euro,
                 taxable, vat, 20 * Euro, fee, contribution, fund, withheld, other);
    return taxable + vat + other;
}

void fillLedger(const ProgramValues &values, const BulkSize &size)
{
    BareFile file(LedgerPath(values));
    file.run("BEGIN IMMEDIATE");
    BareStatement payments = file.prepare(
        "INSERT INTO Fatture (AziProf, Npag, Creditore, NFat, Del, Memo, Descrizione,"
        " Aliquota, Importo, ImportoIVA, AliquotaRA, ImportoPrest, Contributo, CassaPrev,"
        " ImportoRA, AltriImporti01) VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)");
    BareStatement allocations =
        file.prepare("INSERT INTO Spese (RelNpag, Cod, Descrizione, Importo) VALUES (?,?,?,?)");
    Chance chance(size.seed);
    for (int number = 1; number <= size.payments; ++number) {
        const qint64 total = addPayment(payments, chance, number);
        const int count =
            size.allocations / size.payments + (number <= size.allocations % size.payments ? 1 : 0);
        addAllocations(allocations, chance, size, number, total, count);
    }
    file.run("COMMIT");
}

void fillContract(const ProgramValues &values, const BulkSize &size)
{
    // Asked for before the file is taken: the key of a note holds the mapped code.
    const QString keyStart = MandateKeyStart(values);
    BareFile file(ContractPath(values));
    file.run("BEGIN IMMEDIATE");
    BareStatement items =
        file.prepare("INSERT INTO UltimaPerVariante (Voce, Descri, Importo) VALUES (?,?,?)");
    for (int item = 1; item <= size.costItems; ++item) {
        items.run(itemCode(item), itemDescription(item), (item * 7919 % 100000) * Euro);
    }
    BareStatement notes = file.prepare(
        "INSERT INTO SchedaProgetto (Voce, Funzione, Descri, Stringa) VALUES (?,?,?,?)");
    for (int number = 1; number <= size.mandateNotes; ++number) {
        notes.run(keyStart + QString::number(number), qint64{0},
                  MandateDescription(number, QStringLiteral("creditore")),
                  ComposeMandateNote(QString::number(1000 + number), QStringLiteral("15/03/2025")));
    }
    file.run("COMMIT");
}

} // namespace

void FillArchive(const ArchiveBuilder &archive, const BulkSize &size)
{
    fillLedger(archive.values(), size);
    fillContract(archive.values(), size);
}

} // namespace saldoro
