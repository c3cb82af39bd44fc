#include "bench_archive.h"

#include "bare_file.h"
#include "empty_archive.h"
#include "platform/machine_path.h"
#include "store/archive_paths.h"
#include "store/code_map.h"
#include "store/contract_folders.h"
#include "store/internal_codes.h"
#include "store/mandate_note.h"

#include <QDate>
#include <QDir>
#include <QFile>

#include <array>
#include <map>
#include <random>
#include <stdexcept>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 Euro = 10000;
constexpr int AllocationsOfPayment = 3;
constexpr int CostItems = 200;

/** Numbers that are the same on every machine, unlike those of the standard distributions. */
class Chance
{
public:
    /** From 0 up to @p bound, which is left out. */
    int below(int bound) { return static_cast<int>(m_engine() % static_cast<quint32>(bound)); }

private:
    std::mt19937 m_engine{1};
};

QString &benchFolder()
{
    static QString folder;
    return folder;
}

QString itemCode(int item)
{
    return u"V%1"_s.arg(item, 4, 10, QLatin1Char('0'));
}

QString itemDescription(int item)
{
    return u"Voce di spesa numero %1 del quadro economico"_s.arg(item);
}

QString creditorName(int number)
{
    static constexpr std::array<QStringView, 6> names{u"Impresa Sant'Elìa Costruzioni S.r.l.",
                                                      u"ing. Niccolò D'Amìco",
                                                      u"Cooperativa La Quercia",
                                                      u"Studio associato Brè & Forlì",
                                                      u"arch. Perla Dell'Orsa",
                                                      u"Scavi Valle Bruna S.n.c."};
    const auto name = static_cast<std::size_t>(number) % names.size();
    return names[name].toString() + u" (%1)"_s.arg(number);
}

QString memoOf(int payment)
{
    return payment % 3 == 0 ? QString() : u"Pratica n. %1\r\nVisto dell'ufficio"_s.arg(payment);
}

/** The allocations of one payment, to different cost items, add up to @p total. */
void addAllocations(BareStatement &allocations, Chance &chance, int payment, qint64 total)
{
    constexpr qint64 cent = Euro / 100;
    const int firstItem = chance.below(CostItems);
    const qint64 share = total / AllocationsOfPayment / cent * cent;
    for (int place = 0; place < AllocationsOfPayment; ++place) {
        const int item = (firstItem + place) % CostItems + 1;
        const bool isLast = place + 1 == AllocationsOfPayment;
        allocations.run(qint64{payment}, itemCode(item), itemDescription(item),
                        isLast ? total - share * place : share);
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
                 QString::number(chance.below(9000) + 1), day.toString(Qt::ISODate), memoOf(number),
                 u"Pagamento n. %1"_s.arg(number), 22 * Euro, taxable, vat, 20 * Euro, fee,
                 contribution, fund, withheld, other);
    return taxable + vat + other;
}

// One transaction a file: a synced write for each row would take minutes.

void fillLedger(const ProgramValues &values, int payments)
{
    BareFile file(LedgerPath(values));
    file.run("BEGIN IMMEDIATE");
    BareStatement insert =
        file.prepare("INSERT INTO Fatture VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)");
    BareStatement allocations = file.prepare("INSERT INTO Spese VALUES (?,?,?,?)");
    Chance chance;
    for (int number = 1; number <= payments; ++number)
        addAllocations(allocations, chance, number, addPayment(insert, chance, number));
    file.run("COMMIT");
}

void fillContract(const ProgramValues &values, int payments)
{
    // Asked for before the file is taken: the key of a note holds the mapped code.
    const QString keyStart = MandateKeyStart(CodiceEsterno(values, InternalCode::MandateNotes));
    BareFile file(ContractPath(values));
    file.run("BEGIN IMMEDIATE");
    BareStatement items = file.prepare("INSERT INTO UltimaPerVariante VALUES (?,?,?)");
    for (int item = 1; item <= CostItems; ++item)
        items.run(itemCode(item), itemDescription(item), (item * 7919 % 100000) * Euro);
    BareStatement notes = file.prepare(
        "INSERT INTO SchedaProgetto (Voce, Funzione, Descri, Stringa) VALUES (?,?,?,?)");
    for (int number = 1; number <= payments; ++number)
        notes.run(keyStart + QString::number(number), qint64{0},
                  MandateDescription(number, u"creditore"_s),
                  ComposeMandateNote(QString::number(1000 + number), u"15/03/2025"_s));
    file.run("COMMIT");
}

ProgramValues makeArchive(int payments)
{
    ProgramValues values = MakeEmptyArchive(benchFolder(), QString::number(payments));
    AddStandardCodes(values);
    fillLedger(values, payments);
    fillContract(values, payments);
    return values;
}

} // namespace

const ProgramValues &BenchArchive(int payments)
{
    static std::map<int, ProgramValues> archives;
    const auto known = archives.find(payments);
    return known != archives.end()
               ? known->second
               : archives.emplace(payments, makeArchive(payments)).first->second;
}

QString BenchContracts(int contracts)
{
    const QDir project(MachinePath(ProjectFolder(BenchArchive(40))));
    const QString root = u"%1/contracts-%2"_s.arg(benchFolder()).arg(contracts);
    for (int number = 1; number <= contracts; ++number) {
        const QString folder = ContractFolder(root, u"%1"_s.arg(number, 5, 10, QLatin1Char('0')));
        if (!QDir().mkpath(folder))
            throw std::runtime_error("the folder of a contract cannot be made");
        for (const QString &file : project.entryList({u"*.mdb"_s}))
            QFile::copy(project.filePath(file), folder + u'/' + file);
    }
    return root;
}

void SetBenchFolder(const QString &folder)
{
    benchFolder() = folder;
    const QString settings = folder + u"/saldoro"_s;
    QFile file(settings + u"/registro.ini"_s);
    const QString setting = u"[Software\\Dornvale\\ZELT]\ndrivers=%1\n"_s.arg(folder);
    if (!QDir().mkpath(settings) || !file.open(QIODevice::WriteOnly) ||
        file.write(setting.toUtf8()) < 0)
        throw std::runtime_error("no settings can be written in the folder of the archives");
    qputenv("XDG_CONFIG_HOME", folder.toUtf8());
}

} // namespace saldoro
