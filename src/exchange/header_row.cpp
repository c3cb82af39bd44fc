#include "exchange/header_row.h"

#include "common/characters.h"
#include "exchange/cell_values.h"

#include <algorithm>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** What the heading of a column of codes begins with, in any letter case. */
const QLatin1StringView codeHeading("cod");

bool isAmount(const QString &cell)
{
    return AmountOf(cell, Notation::Italian) || AmountOf(cell, Notation::International);
}

/** The columns that a row names; those of needed fields also by names much like theirs. */
CellColumns columnsOf(const CellRow &row, qsizetype firstRow, const ExchangedTable &table)
{
    CellColumns columns;
    columns.firstRow = firstRow;
    QStringList names;
    for (const QString &cell : row.cells) {
        names.append(cell.simplified().removeIf(IsUnseen));
        columns.fieldOfCell.append(names.last().isEmpty() ? CellColumns::Nameless
                                                          : table.indexOf(names.last()));
        if (columns.fieldOfCell.last() >= 0 &&
            columns.fieldOfCell.count(columns.fieldOfCell.last()) > 1) {
            columns.doubled.append(names.last());
            columns.fieldOfCell.last() = CellColumns::Unknown;
        }
    }
    for (const QString &needed : table.neededFields) {
        qsizetype cell = columns.fieldOfCell.indexOf(table.indexOf(needed));
        for (qsizetype other = 0; cell < 0 && other < names.size(); ++other) {
            if (columns.fieldOfCell[other] == CellColumns::Unknown &&
                MayMean(names[other], needed)) {
                columns.guesses.append({needed, names[other]});
                columns.fieldOfCell[cell = other] = table.indexOf(needed);
            }
        }
        if (cell < 0)
            columns.missing.append(needed);
    }
    for (qsizetype cell = 0; cell < names.size(); ++cell) {
        if (columns.fieldOfCell[cell] == CellColumns::Unknown)
            columns.unknown.append(names[cell]);
    }
    return columns;
}

/** Where one column is named for the code and another "Voce", that is the description. */
void tellCodeFromItem(CellColumns &columns, const QStringList &header, const ExchangedTable &table)
{
    const auto columnLike = [&header](QLatin1StringView start) {
        const auto cell = std::ranges::find_if(header, [start](const QString &name) {
            return name.trimmed().startsWith(start, Qt::CaseInsensitive);
        });
        return cell == header.end() ? qsizetype{-1} : cell - header.begin();
    };
    const qsizetype code = columnLike(codeHeading);
    const qsizetype item = columnLike("voce"_L1);
    if (code < 0 || item < 0 || !columns.missing.contains(u"Descri"_s))
        return;
    columns.fieldOfCell.replace(columns.fieldOfCell.indexOf(table.indexOf(u"Voce"_s)),
                                CellColumns::Unknown);
    columns.fieldOfCell[code] = table.indexOf(u"Voce"_s);
    columns.fieldOfCell[item] = table.indexOf(u"Descri"_s);
}

} // namespace

bool IsNameHeading(const QString &text)
{
    static const QStringList headings =
        u"Appaltatore,Azienda,Aziende,Cognome,Cognome e nome,Cognome nome,Creditore,Creditori,"
        "Denominazione,Ditta,Ditte,Fornitore,Fornitori,Impresa,Imprese,Nome cognome,"
        "Nome e cognome,Nominativo,Operatore economico,Professionista,Professionisti,"
        "Ragione sociale"_s.split(u',');
    return headings.contains(text, Qt::CaseInsensitive);
}

bool MayMean(const QString &name, const QString &field)
{
    constexpr qsizetype sameLetters = 3;
    return name.startsWith(field.first(std::min(sameLetters, field.size())), Qt::CaseInsensitive) ||
           (field == "Voce"_L1 && name.startsWith(codeHeading, Qt::CaseInsensitive)) ||
           (field == "Nome"_L1 && IsNameHeading(name));
}

CellColumns FindColumns(const QList<CellRow> &rows, const ExchangedTable &table)
{
    CellColumns best;
    best.missing = table.neededFields;
    for (qsizetype row = 0; row < std::min(rows.size(), MostHeaderRows); ++row) {
        CellColumns columns = columnsOf(rows[row], row + 1, table);
        const auto [missing, guesses] = columns.lack();
        // One guess alone is no header.
        if (columns.lack() < best.lack() &&
            (missing == 0 || guesses > 1 || missing + guesses < table.neededFields.size()))
            best = std::move(columns);
    }
    return best;
}

CellColumns GuessColumns(const QList<CellRow> &rows, const ExchangedTable &table)
{
    CellColumns columns = FindColumns(rows, table);
    const qsizetype found = table.neededFields.size() - columns.missing.size();
    const bool isSure =
        columns.missing.isEmpty() &&
        (columns.guesses.isEmpty() || IsNameHeading(columns.guesses.first().second));
    if (columns.firstRow == 0 || (found == 1 && !isSure))
        return {};
    const QStringList &header = rows[columns.firstRow - 1].cells;
    if (!columns.missing.isEmpty() && !columns.guesses.isEmpty() &&
        std::ranges::any_of(header, isAmount))
        return {}; // an item such as "COD3, Imprevisti, 100,00"
    tellCodeFromItem(columns, header, table);
    return columns;
}

} // namespace saldoro
