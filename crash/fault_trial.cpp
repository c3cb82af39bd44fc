#include "fault_trial.h"

#include "common/errors.h"
#include "invoice/allocation_block.h"
#include "invoice/company_amounts.h"
#include "invoice/payment_save.h"
#include "invoice/professional_amounts.h"
#include "invoice/stored_allocations.h"
#include "overview/availability_overview.h"
#include "overview/document_writer.h"
#include "overview/payment_actions.h"
#include "rtf_reader.h"

#include <QJsonArray>

#include <stdexcept>
#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

QJsonObject saveStep(const QString &kind, int number, int firstItem)
{
    QJsonObject texts{{u"Text1_0"_s, u"Creditore d'Oro"_s}, {u"Text1_1"_s, u"12/B"_s},
                      {u"Text1_3"_s, u"Acconto"_s},         {u"Del"_s, u"05/06/2021"_s},
                      {u"Memo"_s, u"Riga uno\nriga due"_s}, {u"Mandato"_s, u"44"_s},
                      {u"MandatoDell"_s, u"__/__/____"_s}};
    for (const auto &[column, control] : AmountColumns(kind))
        texts[control] = column.startsWith(u"Aliquota") ? u"22.5"_s : u"1.234,56"_s;
    QJsonArray rows;
    for (int item = firstItem; item < firstItem + 4; ++item)
        rows.append(QJsonArray{u"A%1"_s.arg(item), u"Voce di spesa"_s, u"%1,10"_s.arg(item)});
    return {{u"step"_s, u"save"_s},
            {u"kind"_s, kind},
            {u"number"_s, number},
            {u"texts"_s, texts},
            {u"allocations"_s, rows}};
}

/** As the form would after "Conferma". */
void save(ProgramValues &values, const QJsonObject &step)
{
    const bool isCompany = step[u"kind"].toString() == "A"_L1;
    const QJsonObject texts = step[u"texts"].toObject();
    std::unique_ptr<AmountChain> amounts;
    if (isCompany)
        amounts = std::make_unique<CompanyAmounts>();
    else
        amounts = std::make_unique<ProfessionalAmounts>();
    for (const auto &[column, control] : AmountColumns(step[u"kind"].toString()))
        amounts->setText(amounts->position(control), texts[control].toString());
    TextTable none(5);
    TextTable grid(3);
    AllocationBlock(none, grid).prepareGrid();
    for (const QJsonValue row : step[u"allocations"].toArray()) {
        grid.setRows(grid.rows() + 1);
        for (int column = 0; column < 3; ++column)
            grid.setText(grid.rows() - 1, column, row[column].toString());
    }
    const PaymentRecord record{texts[u"Text1_0"].toString(),    texts[u"Text1_1"].toString(),
                               texts[u"Del"].toString(),        texts[u"Text1_3"].toString(),
                               texts[u"Memo"].toString(),       texts[u"Mandato"].toString(),
                               texts[u"MandatoDell"].toString()};
    SavePagamento(values, step[u"number"].toInt(), record, *amounts, grid);
}

void unallocate(const ProgramValues &values, const QJsonObject &step)
{
    const Database ledger = Database::open(LedgerPath(values));
    RecordSet allocations = OpenAllocations(ledger, step[u"number"].toInt());
    if (FindAllocation(allocations, step[u"code"].toString()))
        allocations.deleteRecord();
}

} // namespace

QList<QJsonObject> TriedSteps()
{
    return {saveStep(u"A"_s, 4, 3),
            saveStep(u"P"_s, 2, 3),
            {{u"step"_s, u"delete"_s}, {u"number"_s, 2}},
            {{u"step"_s, u"unallocate"_s}, {u"number"_s, 2}, {u"code"_s, u"A3"_s}},
            {{u"step"_s, u"close"_s}}};
}

FaultTrial::FaultTrial(QJsonObject step)
    : m_step(std::move(step))
    , m_name(m_step[u"step"].toString() + u' ' + m_step[u"kind"].toString())
    , m_screen(OverviewColumn::Count)
{
    FillProject(m_origin, 3);
    PrepareAvailabilityOverview(m_screen);
    FillAvailabilityOverview(m_screen, m_origin.values());
    TestArchive mirror;
    CopyProject(m_origin.values(), mirror.values());
    m_possible = SessionModel(mirror).run(m_step);
}

void FaultTrial::renew()
{
    CopyProject(m_origin.values(), m_copy.values());
}

Report FaultTrial::attempt()
{
    renew();
    return perform();
}

Report FaultTrial::perform()
{
    ProgramValues values = m_copy.values();
    const QString kind = m_step[u"step"].toString();
    const auto reportOf = [](const SaldoroError &error, bool isDatabaseError) {
        return Report{error.message(), error.detail(u"File"_s), error.problem(), isDatabaseError};
    };
    try {
        if (kind == "save"_L1)
            save(values, m_step);
        else if (kind == "delete"_L1)
            DeletePayment(values, m_step[u"number"].toInt());
        else if (kind == "unallocate"_L1)
            unallocate(values, m_step);
        if (kind == "save"_L1 || kind == "close"_L1)
            WriteProjectDocuments(values, m_screen);
    } catch (const DatabaseError &error) {
        return reportOf(error, true);
    } catch (const SaldoroError &error) {
        return reportOf(error, false);
    }
    return {};
}

void FaultTrial::check(const Report &report)
{
    const QStringList faults = DatabaseFaults(m_copy.values());
    Require(faults.isEmpty(), u"damaged: "_s + faults.join(u'\n'), report);
    const ArchiveState found = ReadState(m_copy);
    for (const QByteArray &document : found.documents)
        ReadRtf(document);
    const qsizetype state = m_possible.indexOf(found);
    Require(state >= 0,
            u"not a state of the order of writes:\n"_s + Difference(found, m_possible.last()),
            report);
    if (report.text.isEmpty()) {
        Require(found == m_possible.last(), u"success without having written all"_s, report);
        return;
    }
    if (m_completed.contains(state)) // many faults leave the same state; once is enough for each
        return;
    m_completed.insert(state);
    const Report again = perform();
    Require(again.text.isEmpty(), u"the same work fails once more"_s, again);
    const ArchiveState completed = ReadState(m_copy);
    Require(completed == m_possible.last(),
            u"the same work done again ends elsewhere:\n"_s +
                Difference(completed, m_possible.last()),
            report);
}

void Require(bool holds, const QString &what, const Report &report)
{
    if (!holds)
        throw std::runtime_error(
            (what + u"\nThe report was: "_s + (report.text.isEmpty() ? u"none"_s : report.text))
                .toStdString());
}

} // namespace saldoro
