#include "exchange/csv_table.h"

#include "common/legacy_text.h"
#include "exchange/told_notations.h"
#include "platform/whole_file.h"

#include <QFileInfo>

#include <algorithm>
#include <optional>
#include <set>
#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

QByteArray bytesOf(const QString &path)
{
    QByteArray bytes = ReadWholeFile(path);
    if (bytes.endsWith('\x1a')) // with which old systems end a text
        bytes.chop(1);
    return bytes;
}

/** What a file is that has the name of a CSV file and is none; empty for a CSV file. */
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
               "rovinato o non è un CSV."_s.arg(LineEnds(QString::fromLatin1(bytes.first(at))) + 1);
    return {};
}

/** The text of bytes that are not all in UTF-8, line by line, and its first line that is not. */
std::pair<QString, int> mixedText(QByteArrayView bytes)
{
    const auto isLineEnd = [](char byte) { return byte == '\n' || byte == '\r'; };
    std::pair<QString, int> result;
    auto &[text, oddLine] = result;
    while (!bytes.isEmpty()) {
        const qsizetype end = std::ranges::find_if(bytes, isLineEnd) - bytes.begin();
        const QByteArrayView line = bytes.first(std::min(end + 1, bytes.size()));
        if (oddLine == 0 && !line.isValidUtf8())
            oddLine = LineEnds(text) + 1;
        text += TextOfStoredBytes(line);
        bytes = bytes.sliced(line.size());
    }
    return result;
}

/** The text of a file. Lines that are not in UTF-8 are taken for the Western code page, which is a
 *  guess that @p warnings tell. */
QString textOf(const QString &path, QStringList &warnings, QList<CellFault> &faults)
{
    const QByteArray file = bytesOf(path);
    if (const QString kind = otherKind(file); !kind.isEmpty()) {
        faults.append({0, {}, kind});
        return {};
    }
    const bool isMarked = file.startsWith(Utf8Mark);
    const QByteArray bytes = file.sliced(isMarked ? Utf8Mark.size() : 0);
    if (bytes.isValidUtf8())
        return TextOfUtf8(bytes);
    const auto [text, oddLine] = mixedText(bytes);
    if (isMarked)
        faults.append({oddLine,
                       {},
                       u"c'è un byte che non è UTF-8, mentre il file si dice in UTF-8: "
                       "correggere la riga, o salvare di nuovo il file."_s});
    else
        warnings.append(
            u"%1, riga %2: non è in UTF-8, ed è stata letta in Windows-1252: guardare le "
            "lettere accentate."_s.arg(QFileInfo(path).fileName())
                .arg(oddLine));
    return text;
}

/** The separator of a text, and the columns that its header names. It is the one with which the
 *  first rows name the most needed fields; among equals, the one that gives the first row the most
 *  cells. */
std::pair<QChar, CellColumns> headerOf(const QString &text, const ExchangedTable &table)
{
    std::pair<QChar, CellColumns> best(u';', FindColumns({}, table));
    qsizetype width = 0;
    for (const QChar separator : {u';', u',', u'\t'}) {
        const QList<CellRow> rows = RowsOfText(text, separator, MostHeaderRows).rows;
        const qsizetype cells = rows.isEmpty() ? 0 : rows.first().cells.size();
        CellColumns columns = FindColumns(rows, table);
        if (std::pair(columns.lack(), -cells) < std::pair(best.second.lack(), -width)) {
            best = {separator, std::move(columns)};
            width = cells;
        }
    }
    return best;
}

/** Why a file can't be read by its header; empty when it can. */
QStringList problemsOf(QChar separator, const CellColumns &columns, const ExchangedTable &table)
{
    if (columns.firstRow > 0 && separator == u'\t')
        return {u"le celle sono separate da tabulazioni: salvare il file con «;»."_s};
    if (columns.firstRow == 0)
        return {u"nelle prime %1 righe nessuna nomina i campi %2, separati da «;» o «,»."_s.arg(
            QString::number(MostHeaderRows), table.neededFields.join(u", "_s))};
    QStringList problems;
    for (const QString &field : columns.missing)
        problems.append(u"nell'intestazione manca il campo %1."_s.arg(field));
    for (const auto &[field, name] : columns.guesses)
        problems.append(
            u"nell'intestazione manca il campo %1: se è la colonna «%2», chiamarla %1."_s.arg(
                field, name));
    for (const QString &name : columns.doubled)
        problems.append(u"nell'intestazione il campo %1 è nominato due volte."_s.arg(name));
    return problems;
}

/** The line of a row of values above the header, as sorting a file with its header makes; 0 without
 *  one. Titles fill single cells. */
int rowAboveHeader(const QList<CellRow> &rows, CellColumns columns, const ExchangedTable &table,
                   const TableDef &stored, Notation notation)
{
    const qsizetype header = std::exchange(columns.firstRow, 0) - 1;
    for (qsizetype row = 0; row < header; ++row) {
        QList<CellFault> faults;
        const GivenTable given = TypedRowsOf({rows[row]}, columns, table, stored, notation, faults);
        const auto isFilled = [&](const QString &field) {
            return given.rows.first()[table.indexOf(field)] != NewValue();
        };
        if (faults.isEmpty() && !given.rows.isEmpty() &&
            given.rows.first().count(NewValue()) + 1 < given.rows.first().size() &&
            std::ranges::all_of(table.neededFields, isFilled))
            return rows[row].line;
    }
    return 0;
}

/** Adds as faults the amounts of an Italian file that may be meant in the other notation. They come
 *  behind the sure faults: of many faults only the first are shown. */
void addDoubts(QList<CellRow> rows, const CellColumns &columns, const ExchangedTable &table,
               const TableDef &stored, QList<CellFault> &faults)
{
    QList<CellFault> all;
    TypedRowsOf(std::move(rows), columns, table, stored, std::nullopt, all);
    qsizetype sure = 0;
    const qsizetype sures = faults.size(); // which are among all, in this order
    for (const CellFault &fault : std::as_const(all)) {
        if (sure < sures && fault == faults[sure])
            ++sure;
        else
            faults.append(fault);
    }
}

/** The rows behind a header, whose separator tells the notation. */
GivenTable rowsBelow(const CellColumns &columns, const QString &text, QChar separator,
                     const ExchangedTable &table, const TableDef &stored, QList<CellFault> &faults)
{
    TextRows cells = RowsOfText(text, separator);
    const bool isItalian = separator == u';';
    const Notation own = isItalian ? Notation::Italian : Notation::International;
    const Notation other = isItalian ? Notation::International : Notation::Italian;
    const int lineAbove = rowAboveHeader(cells.rows, columns, table, stored, own);
    GivenTable given = TypedRowsOf(std::move(cells.rows), columns, table, stored, own, faults);
    if (!faults.isEmpty())
        cells = RowsOfText(text, separator); // the rows are used up
    const std::set<Notation> told =
        faults.isEmpty() ? std::set{own} : ToldNotations(cells.rows, columns, table);
    if (isItalian && told.size() > 1) { // "250.125" may be of the other one
        addDoubts(std::move(cells.rows), columns, table, stored, faults);
    } else if (faults.size() > 1 && told == std::set{other}) { // a single one may be a typing error
        QList<CellFault> otherFaults;
        TypedRowsOf(std::move(cells.rows), columns, table, stored, other, otherFaults);
        if (otherFaults.size() + 1 < faults.size())
            faults = {{0,
                       {},
                       u"gli importi e le date sono scritti %1: salvare il file con «%2»."_s.arg(
                           isItalian ? u"come 1234.56 e 2024-12-31"_s : u"all'italiana"_s,
                           isItalian ? u","_s : u";"_s)}};
    }
    if (lineAbove > 0)
        faults.append({lineAbove, {}, u"sta sopra l'intestazione, che va in cima al file."_s});
    if (cells.fault)
        faults.append(*cells.fault);
    return given;
}

/** The rows of a text. */
GivenTable tableOf(const QString &text, const ExchangedTable &table, const TableDef &stored,
                   QStringList &unknownFields, QList<CellFault> &faults)
{
    const auto [separator, columns] = headerOf(text, table);
    for (const QString &problem : problemsOf(separator, columns, table))
        faults.append({0, {}, problem});
    const auto early = RowsOfText(text, u';', MostHeaderRows).fault;
    if (columns.firstRow == 0 && early) // which may be what hides the header
        faults.append(*early);
    if (!faults.isEmpty())
        return {&table, {}};
    unknownFields = columns.unknown;
    return rowsBelow(columns, text, separator, table, stored, faults);
}

/** The faults of a file as findings, which name its table but no row of it. */
Findings findingsOf(const QList<CellFault> &faults, const QString &file,
                    const ExchangedTable &table)
{
    Findings findings;
    for (const CellFault &fault : faults)
        findings.append({FindingGroup::Files,
                         file + (fault.line > 0 ? u", riga %1"_s.arg(fault.line) : QString()) +
                             (fault.field.isEmpty() ? QString() : u", campo "_s + fault.field),
                         fault.problem,
                         {},
                         table.name(),
                         -1,
                         fault.field});
    return findings;
}

} // namespace

GivenTable ReadCsvTable(const QString &path, const ExchangedTable &table, const TableDef &stored,
                        ImportOutcome &outcome)
{
    GivenTable given{&table, {}};
    QStringList unknown;
    QList<CellFault> faults;
    const QString text = textOf(path, outcome.warnings, faults);
    if (faults.isEmpty())
        given = tableOf(text, table, stored, unknown, faults);
    given.source = QFileInfo(path).fileName();
    if (!unknown.isEmpty())
        outcome.warnings.append(
            u"%1: campi tralasciati: %2."_s.arg(given.source, unknown.join(u", "_s)));
    outcome.errors += findingsOf(faults, given.source, table);
    return given;
}

QList<CellRow> ReadCsvRows(const QString &path, const ExchangedTable &table, ImportOutcome &outcome)
{
    QList<CellFault> faults;
    const QString text = textOf(path, outcome.warnings, faults);
    const auto [separator, columns] = headerOf(text, table);
    const TextRows cells = RowsOfText(text, separator);
    const qsizetype width = std::max(columns.fieldOfCell.size(), table.neededFields.size());
    for (const CellRow &row : cells.rows) {
        const QStringList more = row.cells.mid(width);
        if (separator == u',' && more.count(QString()) < more.size())
            faults.append({row.line,
                           {},
                           u"le celle sono %1 e le colonne %2: ciò che contiene virgole va fra "
                           "virgolette."_s.arg(row.cells.size())
                               .arg(width)});
    }
    if (cells.fault)
        faults.append(*cells.fault);
    outcome.errors += findingsOf(faults, QFileInfo(path).fileName(), table);
    return cells.rows;
}

} // namespace saldoro
