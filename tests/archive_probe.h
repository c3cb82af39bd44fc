#pragma once

#include "common/errors.h"
#include "controls/text_table.h"
#include "store/archive_paths.h"
#include "test_archive.h"

#include <QFileInfo>

namespace saldoro {

/** The rows below the header: cells joined by "|", rows by line ends; a blank cell is nothing. */
inline QString BodyText(const TextTable &table)
{
    QStringList rows;
    for (int row = 1; row < table.rows(); ++row) {
        QStringList cells;
        for (int column = 0; column < table.columns(); ++column)
            cells += table.text(row, column);
        rows += cells.join(u'|');
    }
    return rows.join(u'\n');
}

/** A row more, with these cells. */
inline void AddRow(TextTable &table, const QStringList &cells)
{
    table.setRows(table.rows() + 1);
    for (int column = 0; column < cells.size(); ++column)
        table.setText(table.rows() - 1, column, cells.at(column));
}

/** Plants (AziProf, Npag, Creditore, Del, Importo, ImportoIVA, AltriImporti01) in Fatture; here as
 *  below amounts are ten-thousandths. */
inline void PlantPayments(const TestArchive &archive, const char *rows)
{
    archive.execute(LedgerPath(archive.values()),
                    QStringLiteral("INSERT INTO Fatture (AziProf, Npag, Creditore, Del, Importo, "
                                   "ImportoIVA, AltriImporti01) VALUES %1")
                        .arg(QString::fromUtf8(rows)));
}

/** Plants (Voce, Descri, Importo) in the budget and (RelNpag, Cod, Importo) in Spese. */
inline void PlantItems(const TestArchive &archive, const QString &budget, const QString &spese)
{
    if (!budget.isEmpty())
        archive.execute(ContractPath(archive.values()),
                        QStringLiteral("INSERT INTO UltimaPerVariante VALUES ") + budget);
    if (!spese.isEmpty())
        archive.execute(LedgerPath(archive.values()),
                        QStringLiteral("INSERT INTO Spese (RelNpag, Cod, Importo) VALUES ") +
                            spese);
}

/** What an action's error names: "file/table/field" and some more details; "none" without one. */
template <class Action>
QString FailurePlace(const Action &action)
{
    try {
        action();
    } catch (const SaldoroError &error) {
        QString place = QFileInfo(error.detail(Detail::File)).fileName();
        for (const Detail detail : {Detail::Table, Detail::Field, Detail::Item, Detail::Payment,
                                    Detail::Row, Detail::Creditor})
            place += u'/' + error.detail(detail);
        return place;
    }
    return QStringLiteral("none");
}

} // namespace saldoro
