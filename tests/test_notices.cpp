#include "archive_probe.h"
#include "invoice/invoice_notices.h"
#include "open_program.h"
#include "overview/main_screen_notices.h"
#include "store/project_open_mark.h"

#include <QLabel>

using namespace saldoro;

namespace {

/** What a form holds, from tokens such as "Text2_0:5.000,00": texts by their names, "@" before the
 *  field that has the focus, "_" for a blank. But for these all is sound. */
struct HeldState
{
    explicit HeldState(const QString &tokens)
    {
        PrepareAllocations(allocations);
        AddRow(overview, {u"A1"_s, {}, u"1.000,00"_s, u"500,00"_s, u"500,00"_s});
        AddRow(overview, {u"B2"_s, {}, u"640,00"_s, {}, {}});
        PaymentRecord &shown = state.shown;
        shown.kind = tokens[0] == u'A' ? CreditorKind::Company : CreditorKind::Professional;
        shown.storedKind = tokens.first(1);
        shown.number = 7;
        state.allocationTotal = u"0,00"_s;
        shown.del = u"01/02/2026"_s;
        state.allocations = &allocations;
        state.overview = &overview;
        for (const QString &token : tokens.split(u' ', Qt::SkipEmptyParts).mid(1))
            take(QString(token.section(u':', 0, 0)).remove(u'@'), token.section(u':', 1));
        state.focus = tokens.section(u'@', 1).section(u' ', 0, 0).section(u':', 0, 0);
        state.isMeantNew = tokens.contains(u" new"_s);
        state.isListed = !tokens.contains(u" unlisted"_s);
        state.offersNone = tokens.contains(u" none"_s);
        if (tokens.contains(u" unstored"_s))
            shown.storedKind.reset();
    }

    void take(const QString &name, const QString &text)
    {
        PaymentRecord &shown = state.shown;
        const QStringList pair = text.split(u'=');
        for (const AmountField &field : AmountChainOf(shown.kind).fields) {
            if (field.objectName == name)
                shown.amounts.setText(last = field.amount, QString(text).replace(u'_', u' '));
        }
        AmountPast &past = state.past[last];
        for (const auto &[known, target] : std::initializer_list<std::pair<QStringView, QString *>>{
                 {u"del", &shown.del},
                 {u"left", &state.dateLeft},
                 {u"memo", &shown.memo},
                 {u"mandato", &shown.mandato},
                 {u"mandatoDell", &shown.mandatoDell},
                 {u"creditore", &shown.creditore},
                 {u"contractor", &state.contractor},
                 {u"note", &state.note},
                 {u"total", &state.allocationTotal},
                 {u"before", &past.before},
                 {u"typed", &past.left}}) {
            if (name == known)
                *target = text;
        }
        past.isRewritten = past.isRewritten || name == u"rewritten";
        if (name == u"asked")
            state.askedNumber = text.toInt();
        if (name == u"kind")
            shown.storedKind = text;
        if (name == u"cut")
            state.cutFields += text;
        if (name == u"cost")
            AddRow(allocations, {pair[0], {}, pair[1]});
        if (name == u"stored")
            state.storedAllocations.insert(pair[0], pair[1]);
        if (name == u"open" || name == u"closed")
            state.typedAllocation = {pair[0], pair[1], name == u"open"};
    }

    InvoiceState state;
    TextTable allocations;
    TextTable overview{5};
    Amount last = Amount::Importo;
};

/** Holds against notices the parts of their texts that are wanted, in their order. */
void compare(const QList<Notice> &notices, const QString &parts, const QString &about)
{
    QStringList texts;
    for (const Notice &notice : notices)
        texts += notice.text;
    const QStringList wanted = parts.split(u'|', Qt::SkipEmptyParts);
    bool isSame = wanted.size() == texts.size();
    for (qsizetype i = 0; isSame && i < wanted.size(); ++i)
        isSame = texts[i].contains(wanted[i]) && texts[i].size() <= 100;
    QVERIFY2(isSame, qPrintable(about + u" told:\n"_s + texts.join(u'\n')));
}

} // namespace

class TestNotices : public QObject
{
    Q_OBJECT

private slots:
    // What a form holds -> what is told -> what the typed text is worth.
    void invoices()
    {
        const QString cases = uR"(
A Text2_0:50,00 @Text2_1:10 Text2_2:5,00 Text2_3:55,00 total:55,00 -> -> «10» vale 10 per cento (i
P Text4_0:100,00 Text2_0:100,00 @Text2_1:22 -> Conti 0,00, Totale Fattura 122,00: -> vale 22 per cento
P @Text2_5:0.00 Text2_3:0,00 total:0,00 Text5_2:0,00 -> -> 0,00 (i decimali vanno dopo la virgola)
P @Text4_0: -> -> Il campo vuoto vale 0,00 (i decimali vanno dopo il punto)
P @Text4_0:12.500 -> «12.500» vale 12,50, non 12.500,00. Scrivere 12500 -> 12,50
P @Text4_0:12.500_€ -> «12.500 €» vale 12,50, non 12.500,00. Scrivere 12500 -> 12,50
P @Text4_0:1000.50. -> -> 1.000,50
P @Text4_0:1000.50_c.a. -> -> 1.000,50
P @Text4_0:1.234,56,78 -> vale 1,23, non 1.234,56. Scrivere 1234.56 -> 1,23
P Text4_0:12,50 typed:12.500 -> Importo Prestazione: «12.500» vale 12,50
P Text4_0:13,50 typed:12.500
P @Text4_0:1234,56 -> vale 1.234,00, non 1.234,56. Scrivere 1234.56 -> 1.234,00
P @Text4_0:1,234.56 -> vale 1,00, non 1.234,56. Scrivere 1234.56 -> 1,00
P @Text4_0:€_1000 -> «€ 1000» vale 0,00. Scrivere solo cifre e un punto -> 0,00
P @Text4_0:1.000.00 -> «1.000.00» vale 1,00, non 1.000,00. Scrivere 1000.00 -> 1,00
P Text4_0:1,00 typed:1'234.56 -> «1'234.56» vale 1,00. Scrivere solo cifre
P @Text4_0:100- -> «100-» vale 100,00, non -100,00. Scrivere -100 -> 100,00
P @Text4_0:1.000-_€ -> vale 1,00, non -1.000,00. Scrivere -1000 -> 1,00
P @Text4_0:100_-_acconto -> -> 100,00
P @Text2_5:1.050,00- Text2_3:1.050,00 total:1.050,00 -> non -1.050,00. Scrivere -1.050,00 -> 1.050,00
P @Text4_0:850,00 -> -> 850,00
P @Text4_0:8,159,010 -> vale 8,00, non 8.159.010,00. Scrivere 8159010 -> 8,00
P @Text4_0:12a5 -> «12a5» vale 12,00. Scrivere solo cifre -> 12,00
P @Text4_0:€_0 -> -> 0,00
P @Text4_0:1_000.50_€ -> -> «1 000.50 €» vale 1.000,50
P @Text5_0:4/100 -> «4/100» vale 4. Scrivere solo cifre e un punto -> 4 per cento
P @Text5_0:22% -> -> «22%» vale 22 per cento
P @Text2_5:1'234,56 Text2_3:1,00 total:1,00 -> vale 1,00. Scrivere solo cifre e una virgola -> 1,00
P @Text4_0:1e15 -> il programma si ferma -> «1e15» è più di quanto
P @Text5_0:22,5 -> Aliquota R.A.: «22,5» vale 22, non 22.5. Scrivere 22.5 -> 22 per cento
P @Text5_0:4.500 -> -> 4.5 per cento
P @Text2_1:45 before:4.5 -> Aliquota IVA: era 4.5, entrando nel campo è diventata 45 -> 45 per cento
P Text2_1:45 before:4.5 rewritten
P @Text2_5:1,234.56 Text2_3:1,23 total:1,23 -> vale 1,23, non 1.234,56. Scrivere 1.234,56 -> 1,23
P @Text2_5:10.50 -> vale 1.050,00, non 10,50. Scrivere 10,50|Fattura 1.050,00: -> 1.050,00
P Text2_5:10.50 Text2_3:1.050,00 total:1.050,00 -> Altri Importi: «10.50»
P Text2_5:1.050 Text2_3:1.050,00 total:1.050,00
P @Text2_5:2'373.32 Text2_3:2,00 total:2,00 -> vale 2,00. Scrivere solo cifre e una virgola -> 2,00
P @Text2_5:10,50_c.a. Text2_3:10,50 total:10,50 -> -> 10,50
P @Text2_5:873,- Text2_3:873,00 total:873,00 -> -> 873,00
P Text2_5:5.335.24 Text2_3:533.524,00 total:533.524,00 -> non 5.335,24. Scrivere 5.335,24
P Text2_5:1.050_€ Text2_3:1.050,00 total:1.050,00
P Text2_4:10400.00 -> Somma soggetta a R.A.: «10400.00» vale 1.040.000,00
P @Text2_3:5 Text2_0:7,00 total:7,00 -> -> va perso: uscendo dal campo torna 7,00
P Text2_0:9,00 Text2_1:22 Text2_2:1,00 -> Importo IVA: 1,00 non torna, il 22% di 9,00 è 1,98: riscriverla
A @Text2_0:9.00 Text2_1:22 Text2_2:1,00 total:10,00 -> è 1,98: ripassare l'aliquota -> 9,00
A Text2_0:9,00 @Text2_1:10 before:10 Text2_2:1,00 total:9,90 -> Importo IVA: uscendo dal campo attivo 1,00 diventa 0,90 -> 10
P @Text4_0:0.00 before:0,00 Text2_0:9,00 Text2_3:9,00 Text5_2:9,00 total:9,00 -> Iva: uscendo dal campo attivo 9,00 diventa 0,00, da|Fattura: 9,00 è rim -> 0,00
P @Text4_0:0.00 before:0,00 Text2_4:50,00 -> soggetta a R.A.: uscendo dal campo attivo 50,00 diventa 0,00 -> 0,00
P @Text4_0:5.00 before:0,00 Text2_4:5.00 Text5_0:20 Text5_1:1,00 -> «5.00» vale 500,00 -> 5,00
P @Text4_2:1 before:2,00 Text4_0:7,00 Text2_0:9,00 Text2_3:8,00 Text5_2:8,00 total:8,00 -> -> 1,00
P @Text4_1:2 Text2_0:7,00 Text4_0:7,00 Text2_3:9,00 Text5_2:9,00 total:9,00 -> -> 2,00
P @Text4_1:2 before:2,00 Text4_0:7,00 Text2_0:9,00 Text2_3:9,00 Text5_2:9,00 total:9,00 -> -> 2,00
A Text2_0:60,00 before:50,00 @Text2_1:10 before:10 Text2_2:5,00 total:66,00 -> -> 10
A Text2_0:9,00 @Text2_1:20 before:10 Text2_2:0,90 total:10,80 -> -> 20
A Text2_0:9,00 @Text2_1:10 before:10 total:9,90 -> -> 10
P Text2_4:100,00 Text5_0:20 Text5_1:10,00 -> Importo R.A.: 10,00 non torna, il 20% di 100,00 è 20,00: azzerarla
P Text2_0:9,00 Text2_3:8,00 Text5_2:9,00 total:8,00 -> indietro, ora è 9,00|indietro, ora è 8,00
A Text2_0:9,00 Text2_3:8 total:8,00 -> 8 si confronta ma non si salva|scritto 8 e non 8,00
A Text2_0:5.500,00 @Text2_3:5500.00 total:5.500,00 -> è scritto 5500.00 e non 5.500,00 -> com'è
A Text2_0:9,00 Text2_3:9,00 total:7,00 -> restano da ripartire 2,00
A Text2_0:9,00 Text2_3:9,00 total:10,00 -> restano da ripartire -1,00
A cost:A1=600,00 stored:A1=100,00 cost:B2=640,00
A cost:A1=600,01 stored:A1=100,00 -> Voce A1: 600,01 supera di 0,01
A cost:A1=600,01 stored:A1=60,00 stored:A1=40,00 -> supera di 0,01 ciò che resta, 600,00
A cost:B2=640,01 cost:Z9=1,00 -> B2: 640,01 supera di 0,01|Z9: il quadro
A cost:A1=1,00 cost:B2=2,00 cost:a1=3,00 -> Voce a1: c'è due volte
A cost:A1=500,00 open:A1=501 -> supera di 1,00 -> 501,00
A cost:A1=1.234,00 open:A1=1.234,00 -> vale 1,23, non 1.234,00. Scrivere 1234.00 (o Esc) -> 1,23
A cost:A1=1,23 closed:A1=1.234,00 -> Scrivere 1234.00
A cost:A1=1,00 closed:A1=1.000.00 -> Voce A1: «1.000.00» vale 1,00, non 1.000,00
A cost:A1=5,00 closed:A1=1.234,00
A del:__/__/____ -> Senza data
A del:31/02/2026 -> «31/02/2026» non è una data
A del:1_/__/____
A del:1_/__/____ left:1_/__/____ -> non è una data
A del:01/02/1945 left:01/02/45__ -> «01/02/45» vale 01/02/1945
A del:01/02/1998
A del:12/10/0320 -> L'anno è il 320
A del:12/10/2206 -> L'anno è il 2206
A mandatoDell:ibera -> «ibera» non è una data
A mandato:12/delibera -> si riaprirà come «12/»
A cut:Text1_0 -> tagliato
A none -> Nessun nome da scegliere
A new unstored unlisted memo:x note:x -> Le note sono dell'ultimo pagamento
A new unstored unlisted memo:y note:x
A memo:x note:x
A new unstored unlisted @Text1_0 creditore:E contractor:E -> «Ricerca» elenca chi
A new unstored unlisted @Text1_1 creditore:E contractor:E
A new -> Il pagamento 7 c'è già e «Conferma» lo riscrive
A asked:8 -> È rimasto aperto il pagamento 7, non il 8
A asked:7
A kind:P -> Il pagamento 7 c'è già, e dell'altro tipo
P kind:p new -> c'è già e «Conferma» lo riscrive
A unlisted -> Il pagamento 7 è stato eliminato. «Conferma» lo rimette
A new unstored -> nel frattempo
A unstored unlisted -> non c'è. «Conferma» ne aggiunge)"_s;
        QMap<CreditorKind, QSet<QString>> fields;
        for (const QString &line : cases.split(u'\n').mid(1)) {
            const QStringList wanted = (line + u" -> -> "_s).split(u" ->"_s);
            const HeldState held(wanted[0]);
            const Notices told = InvoiceNotices(held.state);
            compare(told.list, wanted[1].trimmed(), line);
            const QString worth = wanted[2].trimmed();
            QVERIFY2(told.worth.contains(worth) && told.worth.isEmpty() == worth.isEmpty(),
                     qPrintable(line + u" told:\n"_s + told.worth));
            for (const Notice &notice : told.list)
                fields[held.state.shown.kind] += notice.field;
        }
        // The forms have the controls that get a bar.
        FormDriver driver;
        for (const auto &[kind, names] : fields.asKeyValueRange()) {
            driver.open(kind, 1);
            for (const QString &name : names)
                QVERIFY2(name.isEmpty() || driver.form->findChild<QWidget *>(name),
                         qPrintable(name));
        }
    }

    void mainScreen()
    {
        for (
            const auto &[numbers, row, left, parts] :
            {std::tuple{u"1 2 3"_s, 2, u"0,00"_s, u""_s},
             {u"1 2 3"_s, 1, u"-2,00"_s, u"Pagato più del previsto: A1 (-2,00)"_s},
             {u"1 3"_s, 2, u""_s,
              u"pagamento 3: «Modifica» ed «Elimina» prendono il 2, che non|3, che è già di «C3»"_s},
             {u"1 3 4"_s, 3, u""_s,
              u"pagamento 4: «Modifica» ed «Elimina» prendono il 3|4, che è già di «C4»"_s},
             {u"3 2"_s, 2, u""_s, u"numero 3, che è già di «C3»"_s},
             {u"1 3 5"_s, 1, u""_s, u"«Nuovo» prenderà il numero 4, che è libero"_s},
             {u"1 2 2"_s, 2, u""_s, u"2 pagamenti hanno il numero 2|numero 4, che è libero"_s}}) {
            TextTable payments(5);
            for (const QString &number : numbers.split(u' '))
                AddRow(payments, {number, u'C' + number});
            payments.setRow(row);
            TextTable overview(5);
            AddRow(overview, {u"A1"_s, {}, {}, {}, left});
            compare(MainScreenNotices(payments, overview, false).list, parts, numbers);
            compare(MainScreenNotices(payments, overview, true).list, u"altra finestra|"_s + parts,
                    numbers);
        }
    }

    /** The forms hand on what they hold, and mark the field; nothing else changes or moves. */
    void formsTell()
    {
        OpenProgram p;
        const QWidget *form = &p.main;
        const auto strip = [&] { return Find<QLabel>(*form, u"Avvisi"_s); };
        const auto told = [&] { return strip()->accessibleName(); };
        QTRY_COMPARE(told(), u"Avviso: Pagato più del previsto: B2 (-1,50)"_s);
        QVERIFY(Find(*form, u"MSFlexGrid2"_s)->accessibleDescription().startsWith(u"Pagato più"_s));
        const ProjectOpenMark other(p.project.folder());
        p.main.load();
        QTRY_VERIFY(told().contains(u"in un'altra finestra"_s));
        p.modify(2);
        form = p.forms.invoiceForm(CreditorKind::Professional);
        const QRect room = strip()->geometry();
        for (const auto &[steps, text] :
             {std::pair{u"to Text2_1, type 4.5, to Text1_1, to Text2_1"_s, u"IVA: era 4.5"_s},
              {u"type 4.5, to Text4_0, type 12.500"_s, u"12,50, non 12.500,00"_s},
              {u"to MSFlexGrid1, Return, type 1.234,5"_s,
               u"non 1.234,50. Scrivere 1234.5 (o Esc)"_s},
              {u"Escape, to MaskEdBox1, Home, type 31022026, Tab, to Text1_1"_s, u"«31/02/2026»"_s},
              {u"Ctrl+A, type 1/2/45, to Text1_1, type 12345678901"_s,
               u"«01/02/45» vale 01/02/1945"_s},
              {u"Tab"_s, u"tagliato"_s}}) {
            Play(form, steps);
            QTRY_VERIFY2(told().contains(text), qPrintable(told()));
        }
        QVERIFY(!told().contains(u"era 4.5"_s));
        QVERIFY(Find(*form, u"Text1_1"_s)
                    ->accessibleDescription()
                    .startsWith(u"Il testo è tagliato"_s));
        QCOMPARE(form->focusWidget()->objectName(), u"MaskEdBox1"_s);
        QCOMPARE(strip()->geometry(), room);
        p.list.setRow(2);
        p.play(u"click Command4"_s);
        QTRY_VERIFY(told().contains(u"Il pagamento 2 è stato eliminato"_s));
        p.play(u"click Command1"_s);
        Play(p.chooser(), u"click Command1"_s);
        form = p.company();
        QTRY_VERIFY(told().contains(u"Il pagamento 3 c'è già e «Conferma» lo riscrive"_s));
    }
};

QTEST_MAIN(TestNotices)
#include "test_notices.moc"
