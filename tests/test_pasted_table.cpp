#include "common/amount_text.h"
#include "exchange/creditor_tables.h"
#include "exchange/pasted_table.h"

#include <QTest>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

/** Each row as the letter of its state and why: "s" set aside, "x" left out, "!" faulty; of a row
 *  that is taken its values. Then the total and the remark. */
QString told(const PastedTable &pasted)
{
    QStringList lines;
    qsizetype taken = 0;
    for (const PastedRow &row : pasted.rows()) {
        QStringList values;
        if (row.state == PastedState::Taken) {
            for (const NewValue &value : pasted.taken().rows[taken++]) {
                const auto *amount = std::get_if<Currency>(&value);
                values.append(amount ? FormatImporto(*amount) : TextOf(value));
            }
        }
        const QChar letter = u"\0!sx"[static_cast<int>(row.state)];
        lines.append(values.isEmpty() ? letter + u' ' + row.reason : values.join(u'|'));
    }
    lines.append(u"= "_s + TotalText(pasted.table(), pasted.taken().rows) +
                 (pasted.isReady() ? u" pronto"_s : u""_s));
    if (!pasted.remark().isEmpty())
        lines.append(pasted.remark());
    return lines.join(u'\n');
}

const ExchangedTable &budget()
{
    return *TableNamed(u"UltimaPerVariante"_s);
}

} // namespace

/** What becomes of cells that come from spreadsheets, web pages and hands. */
class TestPastedTable : public QObject
{
    Q_OBJECT

private slots:
    void clipboards_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("expected");
        const auto add = [](const char *name, const char *text, const char *expected) {
            QTest::addRow("%s", name) << QString::fromUtf8(text) << QString::fromUtf8(expected);
        };
        add("header, titles, totals and more columns",
            "Comune di X\t\t\t\n\t\t\t\nCod.\tVoce di spesa\tU.M.\tImporto (€)\n\tA CORPO\t\t\n"
            "A1\tScavi\tm\t1.000,00\nOPERE\t\t\t\nA2\t\"Muri \"\"di\"\"\nsasso\"\tm\t€ 2.000,5\n"
            "\tTotale\t\t3.000,50\n",
            "s sopra l'intestazione\ns sopra l'intestazione\ns intestazione\n"
            "s senza Codice: titolo o totale\nA1|Scavi|1.000,00\ns una cella sola: titolo, o testo "
            "che non è diviso in celle\n"
            "A2|Muri \"di\" sasso|2.000,50\ns senza Codice: titolo o totale\n= 3.000,50 pronto");
        add("no header, blanks of a web page, CR LF, a minus sign, a quote within",
            "A1\u00a0\t Scavi 5\"\t1.000,00\u00a0€\r\nA2\tRibasso\t\u2212100,00\r\n",
            "A1|Scavi 5\"|1.000,00\nA2|Ribasso|-100,00\n= 900,00 pronto");
        add("ditto marks, which open no quoted cell",
            "Codice\tDescrizione\tImporto\tNota\nA1\tScavi\t1,00\t\"\nA2\t\"\t2,00\t\"\n"
            "A3\t\"\t3,00\t\"\n\"\t\"\t4,00\t\"\n\n\"\t\"\t5,00\t\n",
            "s intestazione\nA1|Scavi|1,00\nA2|\"|2,00\nA3|\"|3,00\n\"|\"|4,00\ns riga vuota\n"
            "\"|\"|5,00\n= 15,00 pronto");
        add("Voce beside a code is the description; errors and invisible letters of a sheet",
            "\tVoce\tCod.\tImporto\n\tScavi\tA1\u200b\t1\n\tMuri\t#N/D\x01\t2\n\tErr:502\t#1\t3",
            "s intestazione\nA1|Scavi|1,00\n! Codice: «#N/D» è un errore del foglio "
            "elettronico.\n! Descrizione: «Err:502» è un errore del foglio elettronico.\n= 1,00");
        add("another order by the header", "Importo\tDescrizione\tCodice\n12,50\tScavi\tA1",
            "s intestazione\nA1|Scavi|12,50\n= 12,50 pronto");
        add("the other notation throughout", "A1\tScavi\t1,234.50\nA2\tMuri\t1,234\nA3\tTetti\t7",
            "A1|Scavi|1.234,50\nA2|Muri|1.234,00\nA3|Tetti|7,00\n= 2.475,50 pronto\n"
            "Gli importi erano scritti come 1,234.56: sono stati letti tutti così e riscritti "
            "all'italiana.");
        add("both notations",
            "A1\tScavi\t1.234,50\nA2\tMuri\t1,234.50\nA3\tTetti\t1,234\nA4\tPali\t1.234.567",
            "A1|Scavi|1.234,50\n! Importo: «1,234.50» non è un importo come 1.234,56, o è fuori "
            "misura.\n! Importo: «1,234» può essere mille volte tanto: scriverlo con due o "
            "quattro decimali.\nA4|Pali|1.234.567,00\n= 1.235.801,50");
        add("what may be a thousand times as much", "A1\tScavi\t1,234",
            "! Importo: «1,234» può essere mille volte tanto: scriverlo con due o quattro "
            "decimali.\n= 0,00");
        add("something lacks", "A1\t\t5,00\nA2\tMuri\t\nA3\tTetti\t#RIF!",
            "! manca Descrizione.\n! manca Importo.\n! Importo: «#RIF!» non è un importo come "
            "1.234,56, o è fuori misura.\n= 0,00");
        add("two columns for one field; codes in the place of descriptions",
            "Codice\tDescrizione\tImporto lordo\tImporto netto\nScavi\tA1\t5\t4",
            "s intestazione\nScavi|A1|5,00\n= 5,00 pronto\nImporto può essere «3. Importo "
            "lordo» o «4. Importo netto»: è stata presa la prima di queste colonne. Se è "
            "un'altra, indicarla qui sopra.\nI codici sono più lunghi delle descrizioni: se le "
            "colonne sono scambiate, indicarle qui sopra.");
        add("numbers in a column without a name", "\tCodice\tDescrizione\tImporto\n1\tA1\tScavi\t5",
            "s intestazione\nA1|Scavi|5,00\n= 5,00 pronto");
        add("a header that names another column for the amounts",
            "Codice\tDescrizione\tQuantità\tTotale\nA1\tScavi\t10\t5.000,00",
            "s intestazione\n! manca Importo.\n= 0,00\nManca la colonna Importo: indicarla qui "
            "sopra.");
        add("an item that is spelt like a header", "COD3\tImprevisti\t100,00\nA1\tScavi\t5",
            "COD3|Imprevisti|100,00\nA1|Scavi|5,00\n= 105,00 pronto");
        add("a header with a year", "Cod.\tDescrizione\t2024\tImporto\nA1\tScavi\t3,00\t5,00",
            "s intestazione\nA1|Scavi|5,00\n= 5,00 pronto");
        add("semicolons for tabs", "A1;\"Scavi; e muri\";5,00\n",
            "A1|Scavi; e muri|5,00\n= 5,00 pronto");
        add("one column", "A1\nA2",
            "s una cella sola: titolo, o testo che non è diviso in celle\ns una cella sola: "
            "titolo, o testo che non è diviso in celle\n= 0,00");
    }
    void clipboards()
    {
        QFETCH(const QString, text);
        QFETCH(const QString, expected);
        PastedTable pasted(budget());
        pasted.setText(text);
        QCOMPARE(told(pasted), expected);
    }

    /** By hand: columns said otherwise, a cell corrected, rows left out and taken in, rows typed,
     *  too. */
    void corrections()
    {
        PastedTable pasted(budget(), [](const TableRows &rows) {
            QList<CellFault> faults;
            for (int row = 0; row < rows.size(); ++row) {
                if (TextOf(rows[row][0]) == "A'"_L1)
                    faults.append({row + 1, {}, u"apostrofo"_s});
            }
            return faults;
        });
        pasted.setText(u"Nota\tA1\tScavi\t5\nNota\tA'\tMuri\tx\n\t\tTotale\t5"_s);
        for (int field = 0; field < 3; ++field)
            pasted.setColumn(budget().neededFields[field], field + 1);
        QCOMPARE(told(pasted),
                 u"A1|Scavi|5,00\n! Importo: «x» non è un importo come 1.234,56, o è fuori "
                 "misura.\ns senza Codice: titolo o totale\n= 5,00"_s);
        pasted.setCell(1, 3, u" 1.000,00 "_s);
        pasted.toggle({0});
        QCOMPARE(told(pasted), u"x tralasciata\n! apostrofo\n"
                               "s senza Codice: titolo o totale\n= 0,00"_s);
        pasted.toggle({0});
        pasted.toggle({1});
        pasted.addRow();
        for (const auto &[column, text] : {std::pair(1, u"A3"_s), {2, u"Tetti"_s}, {3, u"7,5"_s}})
            pasted.setCell(3, column, text);
        QCOMPARE(told(pasted), u"A1|Scavi|5,00\nx tralasciata\n"
                               "s senza Codice: titolo o totale\nA3|Tetti|7,50\n= 12,50 pronto"_s);
        QCOMPARE(pasted.taken().lines, QList<int>({1, 4}));
        pasted.setText(u"Voce\tDescri\tImporto\nA1\tScavi\t5"_s);
        pasted.toggle({0}); // a header that is none
        QVERIFY(told(pasted).startsWith(u"! Importo: «Importo»"_s));
        pasted.setColumn(u"Importo"_s, -1);
        QVERIFY(!pasted.isReady());
        QVERIFY(pasted.remark().startsWith(u"Manca la colonna Importo"_s));
    }

    /** An amount that may be a thousand times as much stays one while other cells are corrected,
     *  until it is itself; what is typed by hand makes none of others. */
    void amountsOfBothNotations()
    {
        PastedTable pasted(budget());
        pasted.setText(u"A1\tScavi\t1000.00\nA2\tMuri\t250.125"_s);
        const QString fault = u"! Importo: «250.125» può essere mille volte tanto: scriverlo con "
                              "due o quattro decimali.\n"_s;
        QVERIFY(told(pasted).endsWith(fault + u"= 0,00"_s));
        pasted.setCell(0, 2, u"1000,00"_s);
        pasted.setColumn(u"Descri"_s, 1);
        QCOMPARE(told(pasted), u"A1|Scavi|1.000,00\n"_s + fault + u"= 1.000,00"_s);
        pasted.setCell(1, 2, u"250,1250"_s);
        QVERIFY(told(pasted).endsWith(u"= 1.250,13 pronto"_s));
        pasted.setText(u"A1\tScavi\t1000.00\n\tMuri\t250.125"_s);
        pasted.setCell(1, 0, u"A2"_s);
        QVERIFY(told(pasted).startsWith(u"A1|Scavi|1.000,00\n"_s + fault));
        pasted.setText(u"A1\tScavi\t1.000\nA2\tMuri\t2.000"_s);
        pasted.setCell(1, 2, u"2000.00"_s);
        pasted.setColumn(u"Descri"_s, 1);
        QCOMPARE(pasted.count(PastedState::Faulty), 1);
        pasted.setText(u"A1\tScavi\t1,234\nA2\tMuri\t"_s);
        pasted.setCell(1, 2, u"2000.00"_s);
        QCOMPARE(pasted.rows()[0].cells[2], u"1,234"_s);
        QCOMPARE(pasted.count(PastedState::Faulty), 2);
        // A row that comes in later tells how the amounts are written, too.
        pasted.setText(u"A1\tScavi\t250.125\n\tMuri\t1000.00"_s);
        pasted.setCell(1, 0, u"A2"_s);
        QCOMPARE(pasted.count(PastedState::Faulty), 2);
    }

    /** Companies that can't be added as they are pasted. */
    void companies()
    {
        const KnownCreditors known{
            {u"Edil Valle"_s, u"Uno"_s}, {{}, {}}, {u"Edil Valle"_s}, {}, {}};
        PastedTable pasted(CompanyList(),
                           [&known](const TableRows &rows) { return CompanyFaults(rows, known); });
        QStringList cells{u"Nome\tMandanti"_s};
        QStringList expected{u"intestazione"_s};
        for (const auto &[row, reason] :
             std::initializer_list<std::pair<const char *, const char *>>{
                 {"ATI Po\tUno; Due; Edil Valle", ""},
                 {"ATI Adda\tDue; due", "la mandante «due» è scritta due volte."},
                 {"ATI Oglio\tDue; Ati Oglio", "«Ati Oglio» non può essere mandante di sé stessa."},
                 {"edil valle\t", "«edil valle» c'è già."},
                 {"uno\t", ""},
                 {"Tre\t", ""},
                 {"TRE\t", "«TRE» c'è già."},
                 {"ragione sociale\t",
                  "«ragione sociale» intitola una colonna: tralasciare la riga."},
                 {"ATI Serio\t\"Due\nTre\ndue\"", "la mandante «due» è scritta due volte."}}) {
            cells.append(QString::fromUtf8(row));
            expected.append(QString::fromUtf8(reason));
        }
        const auto reasons = [&] {
            pasted.setText(cells.join(u'\n'));
            QStringList all;
            for (const PastedRow &row : pasted.rows())
                all.append(row.reason);
            return all;
        };
        QCOMPARE(reasons(), expected);
        cells[5] += u"Due"_s; // which does not make it an association
        expected[5] = u"«uno» è già in archivio e resta com'è: togliere le mandanti."_s;
        QCOMPARE(reasons(), expected);
        pasted.setText(u"Ragione sociale\tMandanti\nATI Adige\tDue;Tre"_s);
        QCOMPARE(pasted.rows().first().reason, u"intestazione"_s);
        QCOMPARE(TextOf(pasted.taken().rows.first()[1]), u"Due;Tre"_s);
        pasted.setText(u"Cognome\tNome\nPo\tAda"_s);
        QVERIFY(pasted.remark().startsWith(u"Nome può essere «2. Nome» o «1. Cognome»"_s));
    }

    /** Several rows go and come back together, whatever they were, and the header stays out. */
    void manyRows()
    {
        int checks = 0;
        PastedTable pasted(budget(), [&checks](const TableRows &) {
            ++checks;
            return QList<CellFault>();
        });
        pasted.setText(u"Comune\t\t\nVoce\tDescri\tImporto\nA1\tScavi\t5\nA2\tMuri\t6"_s);
        const QString before = told(pasted);
        pasted.toggle({3});
        checks = 0;
        pasted.toggle({0, 1, 2, 3});
        QCOMPARE(checks, 1);
        QCOMPARE(told(pasted), u"s sopra l'intestazione\ns intestazione\nx tralasciata\n"
                               "x tralasciata\n= 0,00"_s);
        pasted.toggle({0, 1, 2, 3});
        QCOMPARE(told(pasted), before);
    }

    /** Numbers that were taken for amounts are as they were pasted when another column has those,
     *  in whatever order that is said. */
    void columnsTakenForAmounts()
    {
        const QList<std::pair<QString, int>> columns{{u"Importo"_s, 3}, {u"Voce"_s, 2}};
        for (const auto &[first, second] : {std::pair(0, 1), {1, 0}}) {
            PastedTable pasted(budget());
            pasted.setText(u"1\tScavi\t1.1\t1.000,00\n2\tMuri\t1.2\t2.500,00"_s);
            QVERIFY(pasted.remark().contains(u"riscritti all'italiana"_s));
            pasted.setCell(1, 2, u"1.20"_s);
            for (const int which : {first, second})
                pasted.setColumn(columns[which].first, columns[which].second);
            QCOMPARE(told(pasted), u"1.1|Scavi|1.000,00\n1.20|Muri|2.500,00\n= 3.500,00 pronto"_s);
        }
    }
};

QTEST_GUILESS_MAIN(TestPastedTable)
#include "test_pasted_table.moc"
