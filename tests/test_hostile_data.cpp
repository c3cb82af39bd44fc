#include "held_form.h"
#include "overview/availability_overview.h"
#include "overview/closing_work.h"
#include "overview/payments_list.h"
#include "sound_project.h"
#include "store/contractor_and_principals.h"
#include "store/creditor_search.h"

#include <QTest>

#include <memory>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

/** What each part of the program makes of a project: nothing for what works, otherwise the place
 *  that the error names. */
QString outcome(const TestArchive &archive)
{
    ProgramValues values = archive.values();
    TextTable list;
    TextTable overview;
    QMap<QString, QString> parts; // by the place that they name
    const auto run = [&parts](const QString &part, const auto &action) {
        const QString place = FailurePlace(action);
        if (place != "none"_L1)
            parts[place] += part + u' ';
    };
    PreparePaymentsList(list);
    PrepareAvailabilityOverview(overview);
    run(u"list"_s, [&] { FillPaymentsList(list, OpenPaymentsList(values)); });
    run(u"overview"_s, [&] { FillAvailabilityOverview(overview, values); });
    for (const CreditorKind kind : {CreditorKind::Company, CreditorKind::Professional}) {
        HeldForm form(kind);
        run(u"load"_s, [&] {
            form.load(values);
            AllocationTotal(form.grid);
        });
        if (parts.isEmpty() && kind == CreditorKind::Company)
            run(u"save"_s, [&] { form.save(values); });
    }
    run(u"lists"_s, [&] {
        LoadContractor(values);
        ProfessionalCreditors(values);
        ParticipatingCompanies(values, u"Ed"_s);
    });
    run(u"close"_s, [&] { WriteProjectDocuments(values, overview); });
    QStringList lines;
    for (const QString &place : parts.keys())
        lines += parts[place] + place;
    return lines.join(u'\n');
}

} // namespace

class TestHostileData : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_project = std::make_unique<SoundProject>();
        plant('L', u"UPDATE Fatture SET AltriImporti01 = NULL, ImportoRA = 1 WHERE Npag = 1"_s);
        plant('K', u"UPDATE Funzioni SET CodExt = 'X' || CodInt"_s);
    }

    void endsInAClearError()
    {
        const std::tuple<char, const char *, const char *> cases[] = {
            // What other programs may leave and nothing here trips over.
            {'L',
             "UPDATE Fatture SET Memo = 'a' || char(0) || 'b', Creditore = CAST(X'45E8' AS TEXT);"
             "UPDATE Fatture SET Creditore = '', Del = '' WHERE Npag = 1; INSERT INTO Spese "
             "DEFAULT VALUES;"
             "UPDATE Spese SET Cod = 'A''1*' WHERE Cod = 'A1'",
             ""},
            {'C',
             "UPDATE UltimaPerVariante SET Voce = 7 WHERE Voce = 'A1';"
             "INSERT INTO SchedaProgetto (Voce, Stringa) VALUES ('XP97_1', NULL), (NULL, 'x')",
             ""},
            {'A',
             "INSERT INTO Anag VALUES (NULL, NULL, NULL), (1, 'Ed', 2);"
             "INSERT INTO Partecip VALUES ('x', 1), (NULL, NULL)",
             ""},
            // A value of the wrong kind.
            {'L', "UPDATE Fatture SET Importo = 'dieci' WHERE Npag = 1",
             "list load load close Saldoro.mdb/Fatture/Importo//1//"},
            {'L', "UPDATE Fatture SET Aliquota = 'x', Del = 20200131 WHERE Npag = 1",
             "load load Saldoro.mdb/Fatture/Aliquota//1//\n"
             "list close Saldoro.mdb/Fatture/Del//1//"},
            {'L', "UPDATE Fatture SET ImportoRA = NULL WHERE Npag = 2",
             "close Saldoro.mdb/Fatture/ImportoRA//2//"},
            {'L', "UPDATE Spese SET Importo = 'x' WHERE Cod = 'A1'",
             "overview load load Saldoro.mdb/Spese/Importo/A1/1//"},
            {'C', "INSERT INTO SchedaProgetto (Voce, Link) VALUES ('XDA1', 'x')",
             "lists Appalto.mdb/SchedaProgetto/Link/XDA1///"},
            // Sums beyond the range: of a payment, less its withholding, of all payments, of
            // allocations, of the budget less those.
            {'L', "UPDATE Fatture SET Importo = 9223372036854775807 WHERE Npag = 1",
             "list load load close ////1//"},
            {'L',
             "UPDATE Fatture SET Importo = -9223372036854775807 - 1, ImportoIVA = 0 WHERE Npag = 1",
             "load ////1//"},
            {'L', "UPDATE Fatture SET Importo = 9223372036854775807, ImportoIVA = 0",
             "list close ////2//"},
            {'L', "UPDATE Spese SET Importo = 9223372036854775807, Cod = 'A1', RelNpag = 1",
             "load load ///A1//1/\n"
             "overview ///A1/1//"},
            {'C',
             "UPDATE UltimaPerVariante SET Importo = -9223372036854775807 - 1 WHERE Voce = 'A1'",
             "overview ///A1///"},
            // What is not there at all.
            {'L', "DROP TABLE Spese",
             "list overview Saldoro.mdb/Spese/////\n"
             "load load Saldoro.mdb/Spese///1//"},
            // Codes that a criterion, a pattern or a file name cannot hold.
            {'K', "UPDATE Funzioni SET CodExt = 'X''97' WHERE CodInt = 'P97'",
             "load load Appalto.mdb/SchedaProgetto///1//"},
            {'K', "UPDATE Funzioni SET CodExt = NULL WHERE CodInt = 'P97'",
             "load load chiavi.mdb/Funzioni/CodExt//1//"},
            {'K', "UPDATE Funzioni SET CodExt = 'a/b' WHERE CodInt = 'P99'", "close b.rtf//////"}};
        for (const auto &[file, sql, places] : cases) {
            init();
            const QString what = QString::fromUtf8(sql) + u" -> "_s;
            plant(file, QString::fromUtf8(sql));
            QCOMPARE(what + outcome(m_project->archive), what + QString::fromUtf8(places));
        }
    }

private:
    void plant(char file, const QString &sql) const
    {
        m_project->archive.execute(m_project->path(QLatin1Char(file)),
                                   u"PRAGMA ignore_check_constraints=1;"_s + sql);
    }

    std::unique_ptr<SoundProject> m_project;
};

QTEST_MAIN(TestHostileData)
#include "test_hostile_data.moc"
