#include "works.h"

#include "common/errors.h"
#include "exchange/archive_tables.h"
#include "exchange/export.h"
#include "exchange/import_files.h"
#include "exchange/missing_payment_values.h"
#include "file_content.h"
#include "held_form.h"
#include "overview/availability_overview.h"
#include "overview/closing_work.h"
#include "overview/payment_opening_and_deletion.h"
#include "overview/payments_list.h"
#include "platform/registry.h"
#include "sound_project.h"
#include "store/archive_creation.h"

#include <QFile>
#include <QTemporaryDir>

#include <stdexcept>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** As a form that shows the same amount everywhere and allocates to the items A3 to A6. */
void save(ProgramValues &values, CreditorKind kind, int number)
{
    HeldForm form(kind, number);
    form.record.creditore = u"Creditore d'Oro"_s;
    form.record.nFat = u"12/B"_s;
    form.record.del = u"05/06/2021"_s;
    form.record.descrizione = u"Acconto"_s;
    form.record.memo = u"Riga"_s;
    form.record.mandato = u"44"_s;
    for (const AmountField &field : form.chain().fields)
        form.record.amounts.setText(field.amount,
                                    field.role == AmountRole::Rate ? u"22.5"_s : u"1.234,56"_s);
    form.grid.setRows(5);
    for (int row = 1; row <= 4; ++row) {
        const QStringList cells = {u"A%1"_s.arg(row + 2), u"Voce di spesa"_s, u"%1,10"_s.arg(row)};
        for (int column = 0; column < 3; ++column)
            form.grid.setText(row, column, cells[column]);
    }
    form.save(values);
}

/** "Elimina" of an invoice form that shows payment 2, on the item A3. */
void removeAllocation(ProgramValues &values)
{
    HeldForm form(CreditorKind::Professional, 2);
    form.load(values);
    for (int row = 1; row < form.grid.rows(); ++row) {
        form.grid.setRow(row);
        if (form.grid.text(row, AllocationColumn::Cod) == "A3"_L1)
            return DeleteCurrentRow(form.grid, values, 2);
    }
}

void load(ProgramValues &values, TextTable &overview)
{
    PrepareAvailabilityOverview(overview);
    FillAvailabilityOverview(overview, values);
    TextTable payments;
    PreparePaymentsList(payments);
    FillPaymentsList(payments, OpenPaymentsList(values));
}

void close(ProgramValues &values)
{
    TextTable overview(OverviewColumn::Count);
    load(values, overview);
    WriteProjectDocuments(values, overview);
}

/** A folder of CSV files for two databases. */
QString csvFolder()
{
    static const QTemporaryDir folder;
    for (const auto &[table, text] :
         {std::pair(u"UltimaPerVariante"_s, "Voce;Descri;Importo\nA1;Scavi;1.000,00\n"),
          std::pair(u"Fatture"_s, "AziProf;Npag;Creditore;Del;Importo;ImportoIVA\n"
                                  "A;1;Edil Rossi;31/01/2021;100,00;22,00\n"),
          std::pair(u"Spese"_s, "RelNpag;Cod;Descrizione;Importo\n1;A1;Scavi;122,00\n")}) {
        WriteFile(folder.filePath(table + u".csv"_s), text);
    }
    // Also for a process that has given up its rights.
    QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner |
                                             QFile::ReadGroup | QFile::ExeGroup);
    return folder.path();
}

/** Puts the files in the place of what the project holds, or into a new one. */
void import(const ProgramValues &values, bool isNew)
{
    static const QString csv = csvFolder();
    const ImportOutcome outcome =
        ImportFiles(MachinePath(ProjectFolder(values)), csv,
                    {isNew, true, {u"UltimaPerVariante"_s, u"Fatture"_s, u"Spese"_s}});
    if (!outcome.isDone)
        throw std::runtime_error(outcome.remarks().toStdString());
    // Rows are in, and the setting is not: told, but no error.
    for (const QString &warning : outcome.warnings) {
        if (warning.contains(RegistryFilePath()))
            throw FileError(RegistryFilePath(), warning, u"-"_s);
    }
}

/** Names of the files of an export, in their order. */
QStringList tableFiles()
{
    QStringList names;
    for (const ExchangedTable &table : ExchangedTables())
        names.append(table.fileName());
    return names;
}

} // namespace

TestArchive FilledProject()
{
    const SoundProject project;
    project.archive.execute(LedgerPath(project.archive.values()),
                            u"INSERT INTO Spese (RelNpag, Cod, Importo) VALUES (2, 'A3', 300), "
                            "(2, 'A4', 400)"_s);
    project.archive.execute(ContractPath(project.archive.values()),
                            u"INSERT INTO SchedaProgetto (Voce, Stringa) VALUES "
                            "('M0097_2', 'Mandato nr.5 del 01/02/2021')"_s);
    return project.archive;
}

QList<Work> AllWorks()
{
    const QString ledger = ArchiveFileName::Ledger.toString();
    const QString contract = ArchiveFileName::Contract.toString();
    return {
        {u"creation"_s,
         [](ProgramValues &values) { CreateLedgerDatabase(ProjectFolder(values)); },
         {ledger, u"Fatture"_s, u"Spese"_s},
         {ledger},
         false,
         [](TestArchive &archive) { QFile::remove(MachinePath(LedgerPath(archive.values()))); }},
        {u"load"_s,
         [](ProgramValues &values) {
             TextTable overview(OverviewColumn::Count);
             load(values, overview);
         },
         {},
         {}},
        {u"close"_s,
         close,
         {u"Q0100.rtf"_s, u"Q0100"_s, u"Q0199.rtf"_s, u"Q0198.rtf"_s, u"Q0198"_s, u"Q0199"_s,
          u"S0101"_s, u"Q0299.rtf"_s, u"Q0298.rtf"_s, u"Q0298"_s, u"Q0299"_s, u"S0102"_s,
          u"S0103"_s},
         {contract}},
        {u"new payment"_s,
         [](ProgramValues &values) { save(values, CreditorKind::Company, 3); },
         {u"Fatture 3"_s, u"Spese 6"_s, u"Spese 7"_s, u"Spese 8"_s, u"Spese 9"_s, u"M0097_3"_s},
         {ledger, contract}},
        {u"changed payment"_s,
         [](ProgramValues &values) { save(values, CreditorKind::Professional, 2); },
         {u"Fatture 2"_s, u"Spese 4"_s, u"Spese 5"_s, u"Spese 6"_s, u"Spese 7"_s, u"M0097_2"_s},
         {ledger, contract}},
        {u"deletion"_s,
         [](ProgramValues &values) { DeletePayment(values, 2); },
         {u"M0097_2"_s, u"Fatture 2"_s, u"Spese 2"_s, u"Spese 3"_s, u"Spese 4"_s, u"Spese 5"_s},
         {ledger, contract}},
        {u"deleted allocation"_s, removeAllocation, {u"Spese 4"_s}, {ledger}},
        {u"import"_s,
         [](ProgramValues &values) { import(values, false); },
         {u"(UltimaPerVariante|Fatture|Spese) .*"_s},
         {ledger, contract},
         true,
         {},
         2},
        {u"import into a new project"_s,
         [](ProgramValues &values) { import(values, true); },
         {u"Appalto.mdb|SchedaProgetto|UltimaPerVariante"_s, u"AZIDB.mdb|Anag|Partecip|Manda"_s,
          u"Saldoro.mdb|Fatture|Spese"_s, u".* \\d+"_s, u"registro.ini"_s},
         {ledger, contract},
         true,
         [](TestArchive &archive) {
             for (const auto &pathOf : {LedgerPath, ContractPath, CompaniesPath})
                 QFile::remove(MachinePath(pathOf(archive.values())));
         }},
        {u"export"_s,
         [](ProgramValues &values) {
             const QString folder = MachinePath(ProjectFolder(values));
             ExportProject(folder, folder, true);
         },
         tableFiles(),
         {},
         true,
         [](TestArchive &archive) {
             // A file that the toolkit writes without its buffer.
             archive.execute(LedgerPath(archive.values()),
                             u"UPDATE Fatture SET Memo = printf('%.*c', 40000, 'x')"_s);
             for (const QString &name : tableFiles())
                 WriteFile(MachinePath(ProjectFolder(archive.values())) + u'/' + name, "vecchio");
         },
         0,
         u"esportazione incompleta.txt"_s},
        {u"values set"_s,
         [](ProgramValues &values) {
             SetPaymentValues(LedgerPath(values), {u"1"_s, u"Importo"_s, u"12,00"_s});
         },
         {u"Fatture 1"_s},
         {ledger},
         false,
         [](TestArchive &archive) {
             archive.execute(LedgerPath(archive.values()),
                             u"UPDATE Fatture SET Importo = NULL WHERE Npag = 1"_s);
         },
         1},
    };
}

} // namespace saldoro
