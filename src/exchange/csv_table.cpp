#include "exchange/csv_table.h"

#include "common/errors.h"
#include "exchange/typed_rows.h"
#include "platform/legacy_text.h"

#include <QFile>
#include <QFileInfo>
#include <QMap>

#include <optional>
#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    QByteArray bytes;
    if (!file.open(QIODevice::ReadOnly) || (bytes = file.readAll(), file.error() != QFile::NoError))
        throw FileError(path, u"Il file non può essere letto."_s,
                        u"Controllare i permessi, e che nessun programma lo tenga aperto."_s);
    return bytes;
}

/** What a file is that only bears the name of a CSV file; empty for one that is such a file. */
QString otherKind(const QByteArray &bytes)
{
    if (bytes.startsWith("PK\x03\x04") || bytes.startsWith("\xD0\xCF\x11\xE0"))
        return u"è la cartella di un foglio elettronico con il nome di un file CSV: aprirla e "
               "salvarla come CSV, con «;» e in UTF-8."_s;
    if (bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF") ||
        (bytes.size() > 1 && (bytes[0] == '\0') != (bytes[1] == '\0')))
        return u"è scritto in UTF-16 (in alcuni programmi si chiama Unicode): salvarlo in UTF-8."_s;
    if (const qsizetype at = bytes.indexOf('\0'); at >= 0)
        return u"alla riga %1 c'è un carattere nullo (NUL), che nessun testo contiene: il file è "
               "rovinato o non è un CSV."_s.arg(bytes.first(at).count('\n') + 1);
    if (bytes.startsWith("#TYPE") || bytes.startsWith("\xEF\xBB\xBF#TYPE"))
        return u"comincia con una riga «#TYPE» di un altro programma: toglierla, o esportare senza "
               "il tipo."_s;
    return {};
}

/** One file on its way into a table. */
class FileReader
{
public:
    FileReader(const QString &path, const ExchangedTable &table, QStringList &errors)
        : m_result{&table, QFileInfo(path).fileName(), {}}
        , m_errors(errors)
        , m_bytes(bytesOf(path))
    {
    }

    CsvTable read(const TableDef &stored)
    {
        if (const QString kind = otherKind(m_bytes); !kind.isEmpty()) {
            addError({0, {}, kind});
            return std::move(m_result);
        }
        const QString text = decoded();
        const auto [separator, columns] = header(text);
        if (!takeHeader(columns, separator))
            return std::move(m_result);
        const TextRows cells = RowsOfText(text, separator);
        const bool isItalian = separator == u';';
        const auto readIn = [&, &columns = columns](bool italian) {
            return TypedRowsOf(cells.rows, columns, *m_result.table, stored,
                               italian ? Notation::Italian : Notation::International);
        };
        TypedRows typed = readIn(isItalian);
        const qsizetype faults = typed.faults.size();
        // One that the other notation would mend may be a slip of the hand.
        if (faults > 1 && readIn(!isItalian).faults.size() + 1 < faults &&
            ToldNotation(cells.rows, columns, *m_result.table).has_value()) {
            addError({0,
                      {},
                      isItalian ? u"gli importi e le date sono scritti come 1234.56 e "
                                  "2024-12-31: salvare il file con «,» come separatore."_s
                                : u"gli importi e le date sono scritti all'italiana: salvare "
                                  "il file con «;» come separatore."_s});
            return std::move(m_result);
        }
        addErrors(typed.faults);
        if (cells.fault)
            addError(*cells.fault);
        m_result.rows = std::move(typed.rows);
        m_result.lines = std::move(typed.lines);
        m_result.fields = std::move(typed.fields);
        return std::move(m_result);
    }

    QList<CellRow> readRows()
    {
        if (const QString kind = otherKind(m_bytes); !kind.isEmpty()) {
            addError({0, {}, kind});
            return {};
        }
        const QString text = decoded();
        auto [separator, columns] = header(text);
        for (const QChar other : {u',', u'\t'}) {
            const auto width = [&text](QChar parting) {
                const TextRows first = RowsOfText(text, parting, 1);
                return first.rows.isEmpty() ? 0 : first.rows.first().cells.size();
            };
            if (columns.firstRow == 0 && width(other) > width(separator))
                separator = other;
        }
        const TextRows cells = RowsOfText(text, separator);
        if (cells.fault)
            addError(*cells.fault);
        return cells.rows;
    }

private:
    void addError(const CellFault &fault)
    {
        QString place = m_result.file;
        if (fault.line > 0)
            place += u", riga "_s + QString::number(fault.line);
        if (!fault.field.isEmpty())
            place += u", campo "_s + fault.field;
        m_errors.append(place + u": "_s + fault.problem);
    }

    /** Of each field the first ones, then how many more there are. */
    void addErrors(const QList<CellFault> &faults)
    {
        constexpr int most = 20;
        QMap<QString, int> counts;
        for (const CellFault &fault : faults) {
            if (++counts[fault.field] <= most)
                addError(fault);
        }
        for (auto count = counts.cbegin(); count != counts.cend(); ++count) {
            if (*count > most)
                addError({0, count.key(), u"e altri %1 errori così."_s.arg(*count - most)});
        }
    }

    /** Programs of old write the Western code page; a line of it among others in UTF-8 is told. */
    QString decoded()
    {
        const bool isMarked = m_bytes.startsWith("\xEF\xBB\xBF");
        const QByteArray bytes = m_bytes.sliced(isMarked ? 3 : 0);
        if (bytes.isValidUtf8())
            return TextOfUtf8(bytes);
        QString text;
        int oddLine = 0;
        bool hasUtf8 = isMarked;
        const QList<QByteArray> lines = bytes.split('\n');
        for (qsizetype line = 0; line < lines.size(); ++line) {
            const bool isUtf8 = lines[line].isValidUtf8();
            const QString decoded = TextOfStoredBytes(lines[line]);
            hasUtf8 = hasUtf8 || (isUtf8 && decoded.size() != lines[line].size());
            if (!isUtf8 && oddLine == 0)
                oddLine = static_cast<int>(line) + 1;
            text += (line > 0 ? u"\n"_s : QString()) + decoded;
        }
        if (isMarked)
            addError({oddLine,
                      {},
                      u"c'è un byte che non è UTF-8, mentre il file si dice in UTF-8: "
                      "correggere la riga, o salvare il file di nuovo in UTF-8."_s});
        else if (hasUtf8)
            m_result.warnings.append(
                m_result.file +
                u", riga %1: non è in UTF-8 come il resto del file, ed è stata "
                "letta in Windows-1252: guardare le lettere accentate."_s.arg(oddLine));
        return text;
    }

    /** The separator whose first rows name the most of the needed fields. */
    std::pair<QChar, CellColumns> header(const QString &text) const
    {
        std::pair<QChar, CellColumns> best(u';', FindColumns({}, *m_result.table));
        const auto lack = [](const CellColumns &columns) {
            return std::pair(columns.missing.size(), columns.guesses.size());
        };
        for (const QChar separator : {u';', u',', u'\t'}) {
            const QList<CellRow> rows = RowsOfText(text, separator, MostHeaderRows).rows;
            CellColumns columns = FindColumns(rows, *m_result.table);
            if (lack(columns) < lack(best.second))
                best = {separator, std::move(columns)};
        }
        return best;
    }

    /** False when the file can't be read by that header. */
    bool takeHeader(const CellColumns &columns, QChar separator)
    {
        const qsizetype before = m_errors.size();
        if (separator == u'\t')
            addError({0,
                      {},
                      u"le celle sono separate da tabulazioni: salvare il file con «;» come "
                      "separatore."_s});
        else if (columns.firstRow == 0)
            addError({0,
                      {},
                      u"nelle prime 20 righe nessuna nomina i campi %1, separati da «;» o "
                      "«,»."_s.arg(m_result.table->neededFields.join(u", "_s))});
        else
            addHeaderErrors(columns);
        m_result.unknownFields = columns.unknown;
        return m_errors.size() == before;
    }

    void addHeaderErrors(const CellColumns &columns)
    {
        for (const QString &field : columns.missing)
            addError({0, {}, u"nell'intestazione manca il campo %1."_s.arg(field)});
        for (const auto &[field, name] : columns.guesses)
            addError({0,
                      {},
                      u"nell'intestazione manca il campo %1: se è la colonna «%2», "
                      "chiamarla %1."_s.arg(field, name)});
        for (const QString &name : columns.doubled)
            addError({0, {}, u"nell'intestazione il campo %1 è nominato due volte."_s.arg(name)});
    }

    CsvTable m_result;
    QStringList &m_errors;
    QByteArray m_bytes;
};

} // namespace

QString CsvTable::place(qsizetype row, const QString &field) const
{
    return u"%1, riga %2, campo %3: "_s.arg(file, QString::number(lines[row]), field);
}

CsvTable ReadCsvTable(const QString &path, const ExchangedTable &table, const TableDef &stored,
                      QStringList &errors)
{
    return FileReader(path, table, errors).read(stored);
}

QList<CellRow> ReadCsvRows(const QString &path, const ExchangedTable &table, QStringList &errors)
{
    return FileReader(path, table, errors).readRows();
}

} // namespace saldoro
