#include "session_model.h"

#include "overview/availability_overview.h"
#include "overview/document_writer.h"

#include <QJsonArray>

#include <stdexcept>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

QString quoted(const QString &text)
{
    return u'\'' + QString(text).replace(u'\'', u"''"_s) + u'\'';
}

/** dd/MM/yyyy as it is stored; null for the empty mask. */
QString storedDate(const QString &text)
{
    if (text == "__/__/____"_L1)
        return u"NULL"_s;
    return quoted(text.mid(6, 4) + u'-' + text.mid(3, 2) + u'-' + text.left(2));
}

/** An update of the first row that meets @p condition, or an insertion, as one of them applies. */
struct RowWrite
{
    QString table;
    QString condition;
    QList<QPair<QString, QString>> values;

    QString update() const
    {
        QStringList settings;
        for (const auto &[column, value] : values)
            settings += column + u'=' + value;
        return u"UPDATE %1 SET %2 WHERE rowid=(%3)"_s.arg(table, settings.join(u','), rowId());
    }
    QString insertion() const
    {
        QStringList columns;
        QStringList stored;
        for (const auto &[column, value] : values) {
            columns += column;
            stored += value;
        }
        return u"INSERT INTO %1 (%2) VALUES (%3)"_s.arg(table, columns.join(u','),
                                                        stored.join(u','));
    }
    QString rowId() const
    {
        return u"SELECT min(rowid) FROM %1 WHERE %2 HAVING count(*)>0"_s.arg(table, condition);
    }
    QString deletion() const { return u"DELETE FROM %1 WHERE rowid=(%2)"_s.arg(table, rowId()); }
};

RowWrite paymentWrite(const QJsonObject &step)
{
    const QString kind = step[u"kind"].toString();
    const QString number = QString::number(step[u"number"].toInt());
    const QJsonObject texts = step[u"texts"].toObject();
    const auto text = [&texts](const QString &control) {
        return quoted(texts[control].toString());
    };
    RowWrite write{u"Fatture"_s, u"Npag=%1 AND AziProf='%2'"_s.arg(number, kind), {}};
    write.values = {{u"AziProf"_s, quoted(kind)},
                    {u"Npag"_s, number},
                    {u"Creditore"_s, text(u"Text1_0"_s)},
                    {u"NFat"_s, text(u"Text1_1"_s)},
                    {u"Del"_s, storedDate(texts[u"Del"_s].toString())},
                    {u"Memo"_s, text(u"Memo"_s)},
                    {u"Descrizione"_s, text(u"Text1_3"_s)}};
    for (const auto &[column, control] : AmountColumns(kind)) {
        const bool isRate = column.startsWith(u"Aliquota");
        write.values.append(
            {column, QString::number(TenThousandths(texts[control].toString(), isRate))});
    }
    return write;
}

RowWrite allocationWrite(int number, const QJsonArray &cells)
{
    return {u"Spese"_s,
            u"RelNpag=%1 AND Cod=%2"_s.arg(number).arg(quoted(cells[0].toString())),
            {{u"RelNpag"_s, QString::number(number)},
             {u"Cod"_s, quoted(cells[0].toString())},
             {u"Descrizione"_s, quoted(cells[1].toString().left(50))},
             {u"Importo"_s, QString::number(TenThousandths(cells[2].toString(), false))}}};
}

QString externalCode(const TestArchive &archive, const QString &internalCode)
{
    return archive.rows(CodesPath(archive.values()),
                        u"SELECT CodExt FROM Funzioni WHERE CodInt="_s + quoted(internalCode));
}

} // namespace

qint64 TenThousandths(const QString &text, bool isRate)
{
    QString plain = text;
    if (!isRate)
        plain.remove(u'.').replace(u',', u'.');
    const bool negative = plain.startsWith(u'-');
    const QString digits = plain.mid(negative ? 1 : 0);
    const QString fraction = digits.section(u'.', 1, 1).leftJustified(4, u'0');
    if (fraction.size() > 4)
        throw std::runtime_error("more decimals than a session types: " + text.toStdString());
    const qint64 value = (digits.section(u'.', 0, 0) + fraction).toLongLong();
    return negative ? -value : value;
}

QList<QPair<QString, QString>> AmountColumns(const QString &kind)
{
    if (kind == "A"_L1)
        return {{u"Aliquota"_s, u"Text2_1"_s},
                {u"Importo"_s, u"Text2_0"_s},
                {u"ImportoIVA"_s, u"Text2_2"_s}};
    return {{u"Aliquota"_s, u"Text2_1"_s},      {u"AliquotaRA"_s, u"Text5_0"_s},
            {u"Importo"_s, u"Text2_0"_s},       {u"ImportoIVA"_s, u"Text2_2"_s},
            {u"ImportoPrest"_s, u"Text4_0"_s},  {u"Contributo"_s, u"Text4_1"_s},
            {u"CassaPrev"_s, u"Text4_2"_s},     {u"ImportoRA"_s, u"Text5_1"_s},
            {u"AltriImporti01"_s, u"Text2_5"_s}};
}

SessionModel::SessionModel(TestArchive &archive)
    : m_archive(archive)
{
    load();
}

QList<ArchiveState> SessionModel::run(const QJsonObject &step)
{
    m_states = {ReadState(m_archive)};
    const QString kind = step[u"step"].toString();
    const int number = step[u"number"].toInt();
    if (kind == "save"_L1) {
        save(step);
    } else if (kind == "delete"_L1) {
        remove(number);
        load();
    } else if (kind == "unallocate"_L1) {
        write(LedgerPath(m_archive.values()), allocationWrite(number, {step[u"code"]}).deletion());
    } else {
        close();
    }
    return m_states;
}

void SessionModel::write(const QString &path, const QString &sql)
{
    m_archive.execute(path, sql);
    m_states += ReadState(m_archive);
}

/** The payment, its allocations in the order of the grid, the note, then what closing does. */
void SessionModel::save(const QJsonObject &step)
{
    const QString ledger = LedgerPath(m_archive.values());
    const auto writeRow = [this](const QString &path, const RowWrite &row) {
        const bool exists = !m_archive.rows(path, row.rowId()).isEmpty();
        write(path, exists ? row.update() : row.insertion());
    };
    writeRow(ledger, paymentWrite(step));
    for (const QJsonValue cells : step[u"allocations"].toArray()) {
        RowWrite row = allocationWrite(step[u"number"].toInt(), cells.toArray());
        if (!m_archive.rows(ledger, row.rowId()).isEmpty())
            row.values = {row.values.last()}; // a known code only gets its amount
        writeRow(ledger, row);
    }
    const QJsonObject texts = step[u"texts"].toObject();
    const QString number = QString::number(step[u"number"].toInt());
    const QString item = externalCode(m_archive, u"P97"_s) + u'_' + number;
    const QString description = u"Pag. N."_s + number + u" - "_s + texts[u"Text1_0"_s].toString();
    const QString note = u"Mandato nr."_s + texts[u"Mandato"_s].toString() + u" del "_s +
                         texts[u"MandatoDell"_s].toString();
    writeRow(ContractPath(m_archive.values()), {u"SchedaProgetto"_s,
                                                u"Voce="_s + quoted(item),
                                                {{u"Voce"_s, quoted(item)},
                                                 {u"Funzione"_s, u"0"_s},
                                                 {u"Descri"_s, quoted(description.left(60))},
                                                 {u"Stringa"_s, quoted(note)}}});
    close();
}

/** The note, the payment and all of its number, the allocations. */
void SessionModel::remove(int number)
{
    const QString note = externalCode(m_archive, u"P97"_s) + u'_' + QString::number(number);
    const QString contract = ContractPath(m_archive.values());
    const QString ledger = LedgerPath(m_archive.values());
    const QString sign = QString::number(number);
    const auto removeAll = [this](const QString &path, const RowWrite &row) {
        while (!m_archive.rows(path, row.rowId()).isEmpty())
            write(path, row.deletion());
    };
    removeAll(contract, {u"SchedaProgetto"_s, u"Voce="_s + quoted(note), {}});
    removeAll(ledger, {u"Fatture"_s, u"Npag="_s + sign, {}});
    removeAll(ledger, {u"Spese"_s, u"RelNpag="_s + sign, {}});
}

/** Documents and entries of the contract come from the program's own writer, which other tests
 *  look at; what counts here is the order in which they reach the disk. */
void SessionModel::close()
{
    ArchiveState state = ReadState(m_archive);
    ProgramValues values = m_archive.values();
    WriteProjectDocuments(values, m_screen);
    const ArchiveState after = ReadState(m_archive);
    const auto reach = [&](const QString &code, bool isDocument) {
        const QString name = externalCode(m_archive, code);
        if (isDocument)
            state.documents[name + u".rtf"_s] = after.documents[name + u".rtf"_s];
        else
            state.items[name] = after.items[name];
        m_states += state;
    };
    constexpr bool document = true;
    constexpr bool item = false;
    reach(u"QDP"_s, document);
    reach(u"QDP"_s, item);
    for (const QString &suffix : {QString(), u"P"_s}) {
        reach(u"P99"_s + suffix, document);
        reach(u"P98"_s + suffix, document);
        reach(u"P98"_s + suffix, item);
        reach(u"P99"_s + suffix, item);
        reach(suffix.isEmpty() ? u"QS1A"_s : u"QS1P"_s, item);
    }
    reach(u"QS1T"_s, item);
    if (!(state == after))
        throw std::runtime_error("closing wrote more than is known of: " +
                                 Difference(after, state).toStdString());
    load();
}

void SessionModel::load()
{
    PrepareAvailabilityOverview(m_screen);
    FillAvailabilityOverview(m_screen, m_archive.values());
}

} // namespace saldoro
