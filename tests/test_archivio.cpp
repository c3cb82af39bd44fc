#include "file_content.h"
#include "sound_project.h"
#include "store/table_definitions.h"

#include <QProcess>
#include <QRegularExpression>
#include <QTest>

#include <set>

using namespace saldoro;

namespace {

/** Exit status and output of the program. */
QString run(const QStringList &words)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QString::fromLocal8Bit(COMPANION), words);
    if (!process.waitForFinished())
        return u"did not end"_s;
    return QString::number(process.exitCode()) + u' ' +
           QString::fromUtf8(process.readAllStandardOutput().replace("\r\n", "\n"));
}

} // namespace

/** What the program saldoro-archivio tells, by its exit status too, sets and leaves alone. */
class TestArchivio : public QObject
{
    Q_OBJECT

private slots:
    void commandLine();
    void tellsWhatHindersTheCheck();
    void isHelpedByTheWordsThatItTakes();
};

void TestArchivio::commandLine()
{
    // @p stored in the third payment; empty when no file may change.
    const auto add = [](const char *line, const char *told, const char *stored = "") {
        const SoundProject project;
        project.archive.execute(project.path(u'L'),
                                u"INSERT INTO Fatture (AziProf, Npag, Creditore) VALUES "
                                "('A', 3, 'x\u001b[31m'), ('P', 4, 'y'), ('A', 4, 'z')"_s);
        const QString ledger = u"SELECT * FROM Fatture, Spese"_s;
        const QString rows = project.archive.ledgerRows(ledger);
        const auto before = ContentsOf(project.folder());
        const QTemporaryDir csv;
        WriteFile(csv.filePath(u"SPESE/Spese.csv"_s), "RelNpag;Cod;Importo\nx\x1B;A1;1\n");
        WriteFile(csv.filePath(u"VOCI/UltimaPerVariante.csv"_s),
                  "Voce;Descri;Importo\nA12345;x;1\n");
        QStringList words = QString::fromUtf8(line).split(u' ', Qt::SkipEmptyParts);
        words.replaceInStrings(u"CSV"_s, csv.path()).replaceInStrings(u"''"_s, QString());
        for (QString &word : words) {
            // In other letter case the folder is the same.
            if (word == "P"_L1 || word.startsWith("P/"_L1))
                word.replace(0, 1, project.folder().replace(u"LAVORI"_s, u"Lavori"_s));
        }
        const QString output = run(words);
        QVERIFY2(output.startsWith(QString::fromUtf8(told)),
                 qPrintable(QString::fromUtf8(line) + output));
        if (*stored == '\0') {
            QVERIFY2(ContentsOf(project.folder()) == before, line);
            return;
        }
        QCOMPARE(project.archive.ledgerRows(
                     u"SELECT Del, Importo, ImportoIVA FROM Fatture WHERE Npag = 3"_s),
                 QString::fromUtf8(stored));
        // The copy beside it is the ledger as it was.
        const QString copy = output.section(u"com'era: "_s, 1).section(u'\n', 0, 0);
        if (!copy.isEmpty())
            QCOMPARE(project.archive.rows(copy, ledger), rows);
    };
    const auto refuse = [&](const char *words, const char *problem) {
        add(words, QByteArray("2 saldoro-archivio: Il comando non è stato eseguito.\n") + problem);
    };
    // P is a project whose third payment lacks its day and amounts. The CSV folders hold one file:
    // allocations with a fault, or a budget with a code that a pick cuts.
    refuse("", "Manca il comando: verifica, imposta, importa o esporta.\n");
    refuse("pippo P", "Il comando pippo non esiste.\n");
    for (const char *help : {"--aiuto", "verifica --help", "-h P"})
        add(help, "0 Uso: saldoro-archivio verifica");
    add("esporta --versione", "0 saldoro-archivio 1.");
    add("--version", "0 saldoro-archivio 1.");
    refuse("esporta -- --versione", "Dopo esporta ci vuole: CARTELLA CARTELLA_CSV\n");
    // A stored control character is shown as one that is none.
    add("verifica P",
        "1 Pagamenti\n  - Pagamento 3 (riga 3, x\uFFFD[31m): manca il valore di Del: la schermata "
        "principale si ferma a questa riga e non si apre.\n    Che fare: impostarlo "
        "con «Controlla» di Saldoro - Appalti, o con saldoro-archivio imposta CARTELLA 3 Del "
        "gg/mm/aaaa\n");
    add("verifica --codici P/Altrove.mdb P", "1 Archivi\n  - Altrove.mdb: L'archivio non è stato");
    add("verifica --codici=CSV/Qui.mdb -- P", "1 Archivi\n  - Qui.mdb: L'archivio non è stato");
    refuse("verifica", "Dopo verifica ci vuole: CARTELLA\n");
    refuse("esporta P ''", "Dopo esporta ci vuole: CARTELLA CARTELLA_CSV\n");
    refuse("verifica P/manca", "La cartella non esiste, o non può essere aperta.\n");
    refuse("verifica P --nuovo", "L'opzione nuovo non esiste.\n");
    refuse("verifica P --codici", "Il valore di un'opzione manca, o non ci vuole.\n");
    refuse("esporta P CSV --sovrascrivi=1", "Il valore di un'opzione manca, o non ci vuole.\n");

    add("imposta P 3 del 5/3/2004", "0 Valori impostati: 1.", "2004-03-05|-|-");
    add("imposta P 3 IMPORTOIVA -0,5", "0 Valori impostati: 1.", "-|-|-5000");
    add("imposta P 3 Del 31/12/1999 3 Importo 1 3 ImportoIVA 0", "0 Valori impostati: 3.",
        "1999-12-31|10000|0");
    refuse("imposta P 3 Del", "Dopo imposta ci vuole: CARTELLA PAGAMENTO CAMPO VALORE\n");
    refuse("imposta P 3 Importo 12.34", "«12.34» non è un importo come 1.234,56, o");
    refuse("imposta P 3 Importo 1,234", "«1,234» può essere mille volte tanto: scriverlo con");
    refuse("imposta P 3 Del 5/3/04", "«5/3/04» non è una data gg/mm/aaaa, o è");
    refuse("imposta P 3 Npag 3", "Si possono impostare soltanto Del, Importo e");
    refuse("imposta P 3x Del 5/3/2004", "Il numero del pagamento non è un numero");
    refuse("imposta P 7 Del 5/3/2004", "Nessun pagamento ha questo numero.\n");
    refuse("imposta P 4 Del 5/3/2004", "Più di un pagamento ha questo numero: non è");
    refuse("imposta P 3 Importo 1 1 Del 5/3/2004", "Il campo ha già un");
    refuse("imposta P 3 Importo 1 3 importo 1", "Il campo ha già un");

    add("importa CSV/SPESE P --comunque",
        "1 saldoro-archivio: Errori:\n  Spese.csv, riga 2, campo RelNpag: «x\uFFFD» non");
    add("importa CSV/VOCI P --sostituisci UltimaPerVariante",
        "1 saldoro-archivio: Darebbe problemi più tardi (con --comunque si importa lo stesso):\n");
    add("importa --sostituisci UltimaPerVariante CSV/VOCI --comunque P",
        "0 saldoro-archivio: Darà problemi più tardi:\n  Ult", "-|-|-");
    refuse("importa CSV/VOCI CSV --nuovo", "Un progetto nuovo sta in una cartella che finisce con");
    refuse("esporta P CSV/VOCI", "Il file c'è già.\n");
    add("esporta P CSV/VOCI --sovrascrivi", "0 Funzioni: 10 righe\n");
#ifndef Q_OS_WIN
    QProcess full;
    full.setStandardOutputFile(u"/dev/full"_s);
    full.start(QString::fromLocal8Bit(COMPANION), {u"--aiuto"_s});
    QVERIFY(full.waitForFinished() && full.exitCode() == 2);
#endif
}

void TestArchivio::tellsWhatHindersTheCheck()
{
    const SoundProject project;
    const QString folder = project.folder();
    QCOMPARE(run({u"verifica"_s, folder}), u"0 Nessun difetto trovato.\n"_s);
    // What a crash left behind is not put right, and not taken for sound either.
    WriteFile(folder + u"/Appalto.mdb-journal"_s, "x");
    const auto crashed = ContentsOf(folder);
    const QString output = run({u"verifica"_s, folder});
    QVERIFY2(output.startsWith(u"2 "_s) && output.contains(u"a metà"_s), qPrintable(output));
    QCOMPARE(ContentsOf(folder), crashed);
    QVERIFY(QFile::remove(folder + u"/Appalto.mdb-journal"_s));
#ifndef Q_OS_WIN // where the engine does not mind it
    // A folder in the way of a file of the engine is no change that was broken off.
    QVERIFY(QDir(folder).mkdir(u"Saldoro.mdb-wal"_s));
    const QString blocked = run({u"verifica"_s, folder});
    QVERIFY(blocked.startsWith(u"2 "_s) && blocked.contains(u"Controllare i permessi del file"_s));
    QVERIFY(QDir(folder).rmdir(u"Saldoro.mdb-wal"_s));
#endif
    // A log that was left when a copy was put in the place of its database.
    WriteFile(folder + u"/Saldoro.mdb-wal"_s, "x");
    const auto mixed = ContentsOf(folder);
    for (const QString &command : {u"verifica"_s, u"esporta"_s}) {
        const QStringList operands{command, folder, folder + u"/csv"_s};
        const QString said = run(operands.first(command == u"verifica"_s ? 2 : 3));
        QVERIFY2(said.startsWith(u"2 "_s) && said.contains(u"non è dell'archivio"_s),
                 qPrintable(said));
    }
    QCOMPARE(ContentsOf(folder), mixed);
}

/** Instructions, manual page and completion name each word, and none that the program refuses. */
void TestArchivio::isHelpedByTheWordsThatItTakes()
{
    const auto optionsIn = [](const QString &text) {
        static const QRegularExpression option(u"--[a-z]+"_s);
        std::set<QString> options;
        for (const QRegularExpressionMatch &match : option.globalMatch(text))
            options.insert(match.captured());
        return options;
    };
    const QString page =
        QString::fromUtf8(ContentOf(QStringLiteral(HELPS) + u"/saldoro-archivio.1.in"_s));
    const QString completion =
        QString::fromUtf8(ContentOf(QStringLiteral(HELPS) + u"/saldoro-archivio.bash"_s));
    const QString usage = run({u"--aiuto"_s});
    std::set<QString> options = optionsIn(usage);
    QVERIFY(options == optionsIn(QString(page).remove(u'\\')));
    QVERIFY(options.erase(u"--help"_s) == 1 && options.erase(u"--version"_s) == 1);
    QVERIFY(options == optionsIn(completion));
    QVERIFY(options.erase(u"--aiuto"_s) == 1 && options.erase(u"--versione"_s) == 1);
    const auto wordsBehind = [&completion](const QString &start) {
        return completion.section(start, 1, 1).section(u'\'', 0, 0).split(u' ');
    };
    const QStringList commands = wordsBehind(u"-W '"_s).first(4);
    QVERIFY(run({}).contains(
        u": %1, %2, %3 o %4.\n"_s.arg(commands[0], commands[1], commands[2], commands[3])));
    for (const QString &command : commands) {
        const QStringList own = wordsBehind(command + u") options='"_s);
        if (command == u"imposta") // where every word is a value
            continue;
        for (const QString &option : options)
            QVERIFY2(run({command, option}).contains(u"non esiste"_s) != own.contains(option),
                     qPrintable(command + option));
    }
    QStringList tables;
    for (const ArchiveFile file : ArchiveFileList) {
        for (const TableDef &table : TablesOf(file))
            tables.append(table.name());
    }
    QCOMPARE(wordsBehind(u"--sostituisci ]; then\n        options='"_s), tables);
    QCOMPARE(wordsBehind(u"imposta 4' ]; then\n        options='"_s), SettablePaymentFields());
}

QTEST_GUILESS_MAIN(TestArchivio)
#include "test_archivio.moc"
