#include "exchange/import_rules.h"

#include "store/internal_codes.h"

#include <algorithm>
#include <set>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** Cost items that the invoice forms can offer. */
constexpr size_t PickListSize = 201;

QString textOf(const NewValue &value)
{
    const auto *text = std::get_if<QString>(&value);
    return text == nullptr ? QString() : *text;
}

bool isNull(const NewValue &value)
{
    return std::holds_alternative<std::monostate>(value);
}

/** The rows of one file, checked. */
class RowChecks
{
public:
    RowChecks(const CsvTable &table, ImportRemarks &remarks)
        : m_table(table)
        , m_remarks(remarks)
    {
    }

    void checkPayments()
    {
        const QString stops =
            u"manca il valore: la schermata principale si ferma a questo pagamento."_s;
        for (const QString &field :
             {u"Npag"_s, u"Creditore"_s, u"Del"_s, u"Importo"_s, u"ImportoIVA"_s})
            refuseNulls(field, stops);
        refuseNulls(u"AziProf"_s, u"manca il valore: il pagamento non si può aprire."_s);
        for (const QString &field :
             {u"ImportoPrest"_s, u"Contributo"_s, u"CassaPrev"_s, u"ImportoRA"_s}) {
            refuseNulls(field,
                        u"manca il valore: la chiusura si ferma senza completare i documenti."_s,
                        [this](const CsvRecord &record) { return kind(record) == "P"_L1; });
        }
        checkKinds();
        checkNumbers();
    }

    void checkAllocations()
    {
        refuseNulls(u"Importo"_s, u"manca il valore: la schermata principale si ferma."_s);
    }

    void checkSheet(const CodeMap &codes)
    {
        const auto contractor = codes.find(ComparedCode(InternalCode::Contractor.toString()));
        if (contractor == codes.end())
            return;
        refuseNulls(u"Link"_s,
                    u"manca l'impresa dell'appaltatore (0 se non c'è): le fatture delle aziende "
                    "non si aprono."_s,
                    [&](const CsvRecord &record) {
                        return ComparedCode(value(record, u"Voce"_s)) ==
                               ComparedCode(contractor->second);
                    });
    }

    void checkCodes(const CodeMap &codes)
    {
        for (const QString &field : {u"CodExt"_s, u"Desc"_s})
            refuseNulls(field, u"manca il valore: il programma può fermarsi quando lo cerca."_s);
        for (const CodeMapping &code : StandardCodes()) {
            if (!codes.contains(ComparedCode(code.internalCode)))
                m_remarks.refusals.append(m_table.file + u": manca il codice interno "_s +
                                          code.internalCode + u" («"_s + code.description +
                                          u"»), che il programma cerca."_s);
        }
    }

    void checkBudget()
    {
        for (const QString &field : {u"Voce"_s, u"Descri"_s})
            refuseNulls(field,
                        u"manca il valore: la schermata principale si ferma a questa voce."_s);
        if (m_table.records.size() > PickListSize)
            m_remarks.warnings.append(
                m_table.file +
                u": le voci sono %1; «Inserisci» ne può offrire 201 e si ferma."_s.arg(
                    m_table.records.size()));
    }

private:
    QString value(const CsvRecord &record, const QString &field) const
    {
        return textOf(record.values[m_table.column(field)]);
    }
    QString kind(const CsvRecord &record) const { return value(record, u"AziProf"_s); }

    template <typename Condition>
    void refuseNulls(const QString &field, const QString &problem, const Condition &concerns)
    {
        const int column = m_table.column(field);
        for (const CsvRecord &record : m_table.records) {
            if (isNull(record.values[column]) && concerns(record))
                m_remarks.refusals.append(m_table.place(record, field) + problem);
        }
    }
    void refuseNulls(const QString &field, const QString &problem)
    {
        refuseNulls(field, problem, [](const CsvRecord & /*record*/) { return true; });
    }

    void checkKinds()
    {
        for (const CsvRecord &record : m_table.records) {
            const QString given = kind(record);
            if (!given.isEmpty() && given != "A"_L1 && given != "P"_L1)
                m_remarks.errors.append(m_table.place(record, u"AziProf"_s) + u"«"_s + given +
                                        u"» non è A (azienda) né P (professionista)."_s);
        }
    }

    /** The list's rows are taken for payment numbers. */
    void checkNumbers()
    {
        const int column = m_table.column(u"Npag"_s);
        std::set<qint32> numbers;
        for (const CsvRecord &record : m_table.records) {
            if (const auto *number = std::get_if<qint32>(&record.values[column]))
                numbers.insert(*number);
        }
        const auto count = static_cast<qint32>(m_table.records.size());
        if (count > 0 && (numbers.size() != m_table.records.size() || *numbers.begin() != 1 ||
                          *numbers.rbegin() != count))
            m_remarks.warnings.append(
                m_table.file +
                u": i pagamenti non sono numerati da 1 a %1 senza salti né doppioni; "
                "«Modifica» ed «Elimina» prendono il numero della riga."_s.arg(count));
    }

    const CsvTable &m_table;
    ImportRemarks &m_remarks;
};

} // namespace

QString ComparedCode(const QString &code)
{
    return code.toCaseFolded();
}

CodeMap CodeMapOf(const QList<QList<NewValue>> &rows)
{
    CodeMap codes;
    for (const QList<NewValue> &row : rows)
        codes.try_emplace(ComparedCode(textOf(row[0])), textOf(row[1]));
    return codes;
}

void CheckRows(const CsvTable &table, const CodeMap &codes, ImportRemarks &remarks)
{
    RowChecks checks(table, remarks);
    const QString &name = table.table->name();
    if (name == "Fatture"_L1)
        checks.checkPayments();
    else if (name == "Spese"_L1)
        checks.checkAllocations();
    else if (name == "UltimaPerVariante"_L1)
        checks.checkBudget();
    else if (name == "SchedaProgetto"_L1)
        checks.checkSheet(codes);
    else if (name == "Funzioni"_L1)
        checks.checkCodes(codes);
}

QStringList LostItems(const CsvTable &table, const QList<QList<NewValue>> &stored,
                      const CodeMap &codes)
{
    std::set<QString> kept;
    for (const CsvRecord &record : table.records)
        kept.insert(ComparedCode(textOf(record.values[table.column(u"Voce"_s)])));
    std::set<QString> registered;
    QString notes;
    for (const UsedCode &used : UsedCodes) {
        const auto external = codes.find(ComparedCode(used.code.toString()));
        if (external == codes.end() || used.use == CodeUse::Search)
            continue;
        if (used.use == CodeUse::Note)
            notes = ComparedCode(external->second) + u'_';
        else
            registered.insert(ComparedCode(external->second));
    }
    QStringList lost;
    for (const QList<NewValue> &row : stored) {
        const QString item = ComparedCode(textOf(row[table.column(u"Voce"_s)]));
        bool isNote = !notes.isEmpty() && item.startsWith(notes);
        if (isNote)
            item.sliced(notes.size()).toInt(&isNote);
        if ((isNote || registered.contains(item)) && !kept.contains(item))
            lost.append(u"%1 (%2)"_s.arg(textOf(row[table.column(u"Voce"_s)]),
                                         textOf(row[table.column(u"Descri"_s)])));
    }
    return lost;
}

} // namespace saldoro
