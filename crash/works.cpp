#include "works.h"

#include "exchange/import.h"
#include "held_form.h"
#include "overview/availability_overview.h"
#include "overview/overview_document.h"
#include "overview/payment_deletion.h"
#include "overview/payments_list.h"
#include "overview_probe.h"
#include "platform/machine_path.h"
#include "store/ledger.h"

#include <QFile>
#include <QTemporaryDir>

#include <stdexcept>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** The states before and after each of @p writes, one or more statements with the ledger's or the
 *  contract's initial in front, as in "L DELETE FROM Spese". */
auto writing(const QStringList &writes)
{
    return [writes](TestArchive &archive) {
        QList<ArchiveState> states = {ReadState(archive)};
        for (const QString &write : writes) {
            const ProgramValues &values = archive.values();
            archive.execute(write[0] == u'L' ? LedgerPath(values) : ContractPath(values),
                            write.mid(2));
            states += ReadState(archive);
        }
        return states;
    };
}

/** As a form that shows the same amount everywhere and allocates to the items A3 to A6. */
void save(ProgramValues &values, CreditorKind kind, int number)
{
    HeldForm form(kind, number);
    form.record.creditore = u"Creditore d'Oro"_s;
    form.record.nFat = u"12/B"_s;
    form.record.del = u"05/06/2021"_s;
    form.record.descrizione = u"Acconto"_s;
    form.record.memo = u"Riga\nriga"_s;
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

/** The writes of save(): payment, allocations, note. The items up to @p lastKnown are allocated. */
QStringList savingWrites(int number, const QString &newPayment, const QString &otherAmounts,
                         int lastKnown, const QString &newNote)
{
    QStringList writes = {
        newPayment +
        u"UPDATE Fatture SET Creditore = 'Creditore d''Oro', NFat = '12/B', Del = "
        "'2021-06-05', Memo = 'Riga\nriga', Descrizione = 'Acconto', Aliquota = "
        "225000, Importo = 12345600, ImportoIVA = 12345600%1 WHERE Npag = %2"_s.arg(otherAmounts)
            .arg(number)};
    for (int row = 1; row <= 4; ++row) {
        const QString sql =
            row + 2 <= lastKnown
                ? u"L UPDATE Spese SET Importo = %3 * 10000 + 1000 WHERE RelNpag = %1 AND "
                  "Cod = 'A%2'"_s
                : u"L INSERT INTO Spese VALUES(%1, 'A%2', 'Voce di spesa', %3 * 10000 + 1000)"_s;
        writes += sql.arg(number).arg(row + 2).arg(row);
    }
    writes += newNote + u"UPDATE SchedaProgetto SET Funzione = 0, Descri = 'Pag. N.%1 - Creditore "
                        "d''Oro', Stringa = 'Mandato nr.44 del __/__/____' WHERE Voce = "
                        "'M0097_%1'"_s.arg(number);
    return writes;
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
    FillPaymentsList(payments, values);
}

void close(ProgramValues &values)
{
    TextTable overview(OverviewColumn::Count);
    load(values, overview);
    WriteProjectDocuments(values, overview);
}

/** Documents and entries of the contract come from the program's own writer, which other tests
 *  look at; what counts here is the order in which they reach the disk. */
QList<ArchiveState> closingStates(TestArchive &archive)
{
    QList<ArchiveState> states = {ReadState(archive)};
    ProgramValues values = archive.values();
    close(values);
    const ArchiveState after = ReadState(archive);
    for (const QString &code :
         {u"QDP.rtf"_s, u"QDP"_s, u"P99.rtf"_s, u"P98.rtf"_s, u"P98"_s, u"P99"_s, u"QS1A"_s,
          u"P99P.rtf"_s, u"P98P.rtf"_s, u"P98P"_s, u"P99P"_s, u"QS1P"_s, u"QS1T"_s}) {
        const QString name = archive.rows(CodesPath(values),
                                          u"SELECT CodExt FROM Funzioni WHERE CodInt = '%1'"_s.arg(
                                              code.section(u'.', 0, 0))) +
                             code.mid(code.indexOf(u'.') < 0 ? code.size() : code.indexOf(u'.'));
        ArchiveState next = states.last();
        next[name] = after[name];
        states += next;
    }
    if (states.last() != after)
        throw std::runtime_error("closing wrote more than is known of: " +
                                 Difference(after, states.last()).toStdString());
    return states;
}

QList<ArchiveState> creationStates(TestArchive &archive)
{
    QList<ArchiveState> states = {ReadState(archive)};
    for (const auto &[key, tables] :
         {std::pair(u"tabelle"_s, QString()), std::pair(u"Fatture"_s, u"Fatture"_s),
          std::pair(u"Spese"_s, u"Fatture\nSpese"_s)}) {
        ArchiveState next = states.last();
        next[key] = u"\n"_s;
        next[u"tabelle"_s] = tables;
        states += next;
    }
    return states;
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
        QFile file(folder.filePath(table + u".csv"_s));
        if (!file.open(QIODevice::WriteOnly) || file.write(text) < 0)
            throw std::runtime_error("the file to import can't be written");
    }
    // Also for a process that has given up its rights.
    QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner |
                                             QFile::ReadGroup | QFile::ExeGroup);
    return folder.path();
}

/** Puts the files in the place of what the project holds. */
void import(const ProgramValues &values, const QString &csv)
{
    const ImportOutcome outcome =
        ImportProject({csv,
                       MachinePath(ProjectFolder(values)),
                       false,
                       true,
                       {u"UltimaPerVariante"_s, u"Fatture"_s, u"Spese"_s}});
    if (!outcome.isDone)
        throw std::runtime_error(outcome.remarks.toStdString());
}

} // namespace

void FillProject(const TestArchive &archive)
{
    AddStandardCodes(archive.values());
    PlantItems(archive,
               u"('A1','Scavi e rìnterri',90000000),('A2','Murature',NULL),('A3','Ponteggi',1),"
               "('A4','Oneri',2500000)"_s,
               u"(1,'A1',1220000),(2,'A1',100),(2,'A2',200),(2,'A3',300),(2,'A4',400),"
               "(3,'A1',305000)"_s);
    PlantPayments(archive, "('A',1,'Rossi S.r.l.','2021-03-15',1000000,220000,NULL),"
                           "('P',2,'Ing. Bò','2021-04-02',500000,110000,40000),"
                           "('A',3,'Cave Unite','2021-05-20',250000,55000,NULL)");
    archive.execute(LedgerPath(archive.values()),
                    u"UPDATE Fatture SET Aliquota=220000, AliquotaRA=0, Contributo=0,"
                    "ImportoPrest=Importo, CassaPrev=0, ImportoRA=0"_s);
    archive.execute(ContractPath(archive.values()),
                    u"INSERT INTO SchedaProgetto (Voce, Stringa) VALUES "
                    "('M0097_2', 'Mandato nr.5 del 01/02/2021')"_s);
}

QList<Work> AllWorks()
{
    const QString ledger = ArchiveFiles::Ledger.toString();
    const QString contract = ArchiveFiles::Contract.toString();
    return {
        {u"creation"_s,
         [](ProgramValues &values) { CreateLedgerDatabase(ProjectFolder(values)); },
         creationStates,
         {ledger},
         false,
         [](TestArchive &archive) { QFile::remove(MachinePath(LedgerPath(archive.values()))); }},
        {u"load"_s,
         [](ProgramValues &values) {
             TextTable overview(OverviewColumn::Count);
             load(values, overview);
         },
         writing({}),
         {}},
        {u"close"_s, close, closingStates, {contract}},
        {u"new payment"_s,
         [](ProgramValues &values) { save(values, CreditorKind::Company, 4); },
         writing(savingWrites(4, u"L INSERT INTO Fatture(AziProf, Npag) VALUES('A', 4);"_s, {}, 0,
                              u"C INSERT INTO SchedaProgetto(Voce) VALUES('M0097_4');"_s)),
         {ledger, contract}},
        {u"changed payment"_s,
         [](ProgramValues &values) { save(values, CreditorKind::Professional, 2); },
         writing(savingWrites(2, u"L "_s,
                              u", AliquotaRA = 225000, ImportoPrest = 12345600, Contributo = "
                              "12345600, CassaPrev = 12345600, ImportoRA = 12345600, "
                              "AltriImporti01 = 12345600"_s,
                              4, u"C "_s)),
         {ledger, contract}},
        {u"deletion"_s,
         [](ProgramValues &values) { DeletePayment(values, 2); },
         writing(QStringList{u"C DELETE FROM SchedaProgetto WHERE Voce = 'M0097_2'"_s,
                             u"L DELETE FROM Fatture WHERE Npag = 2"_s} +
                 QStringList(4, u"L DELETE FROM Spese WHERE rowid = (SELECT min(rowid) FROM Spese "
                                "WHERE RelNpag = 2)"_s)),
         {ledger, contract}},
        {u"deleted allocation"_s,
         removeAllocation,
         writing({u"L DELETE FROM Spese WHERE RelNpag = 2 AND Cod = 'A3'"_s}),
         {ledger}},
        {u"import"_s,
         [csv = csvFolder()](ProgramValues &values) { import(values, csv); },
         writing({u"C DELETE FROM UltimaPerVariante; INSERT INTO UltimaPerVariante VALUES('A1', "
                  "'Scavi', 10000000)"_s,
                  u"L DELETE FROM Fatture; INSERT INTO Fatture(AziProf, Npag, Creditore, Del, "
                  "Importo, ImportoIVA) VALUES('A', 1, 'Edil Rossi', '2021-01-31', 1000000, "
                  "220000); DELETE FROM Spese; INSERT INTO Spese VALUES(1, 'A1', 'Scavi', "
                  "1220000)"_s}),
         {ledger, contract}},
    };
}

} // namespace saldoro
