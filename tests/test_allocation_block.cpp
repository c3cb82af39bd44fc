#include "common/errors.h"
#include "common/message_box.h"
#include "invoice/allocation_block.h"
#include "test_archive.h"

#include <QTest>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

constexpr qint32 Number = 4;

/** Answers every question in the same way and keeps what was asked. */
class Answers
{
public:
    explicit Answers(MessageAnswer answer)
        : m_before(ReplaceMessageBoxes([this, answer](MessageKind kind, const QString &text) {
            asked.append((kind == MessageKind::Question ? u"? "_s : u"i "_s) + text);
            return kind == MessageKind::Question ? answer : MessageAnswer::Ok;
        }))
    {
    }
    ~Answers() { ReplaceMessageBoxes(m_before); }
    Answers(const Answers &) = delete;
    Answers &operator=(const Answers &) = delete;

    QStringList asked;

private:
    MessageAnswerer m_before;
};

/** An overview of @p items ("code;description;availability") and the grid of a form. */
struct Tables
{
    TextTable overview{5};
    TextTable grid;
    AllocationBlock block{overview, grid};

    explicit Tables(const QStringList &items)
    {
        block.prepareGrid();
        for (const QString &item : items) {
            const int row = overview.rows();
            overview.setRows(row + 1);
            overview.setText(row, 0, item.section(u';', 0, 0));
            overview.setText(row, 1, item.section(u';', 1, 1));
            overview.setText(row, 4, item.section(u';', 2, 2));
        }
    }

    void allocate(int line, const QString &typed)
    {
        block.openPickList();
        block.pick(line);
        block.editorEntered();
        block.editorConfirmed(typed);
    }

    /** Body rows, then the current cell and the total. */
    QString state() const
    {
        QString text;
        for (int row = 1; row < grid.rows(); ++row)
            text += grid.text(row, 0) + u'|' + grid.text(row, 1) + u'|' + grid.text(row, 2) + u'\n';
        return text + u"@%1,%2 = "_s.arg(grid.row()).arg(grid.column()) + block.totalText();
    }
};

const QStringList Items{u"B1;Scavi;1.500,00"_s, u" b1 ;Rinterri;-20,00"_s,
                        u"Q7654321;Oneri;0,00"_s};

} // namespace

class TestAllocationBlock : public QObject
{
    Q_OBJECT

private slots:
    void pickListOffersWhatIsNotInTheGrid();
    void fullGridTellsSo();
    void abandonedInsertionLeavesNoRow();
    void pickListHas201Lines();
    void editorOpensOnAmountsOnly();
    void editorValueReachesItsCell();
    void deletionReachesLedgerAtOnce();
    void deletionAnsweredNo();
    void confirmationComparesTexts();
};

void TestAllocationBlock::pickListOffersWhatIsNotInTheGrid()
{
    Tables tables(Items);
    QCOMPARE(tables.block.openPickList(),
             (QStringList{u"B1   Scavi L.1.500,00"_s, u"b1   Rinterri L.-20,00"_s,
                          u"Q7654321Oneri L.0,00"_s}));
    QCOMPARE(tables.state(), u"||\n@1,0 = 0,00"_s);
    tables.block.pick(0);
    QCOMPARE(tables.state(), u"B1|Scavi|\n@1,2 = 0,00"_s);
    QVERIFY(tables.block.isCurrentCellEditable());
    tables.block.leavePickList(); // hiding the list takes its focus: the picked row stays

    // Another letter case is another item; a code cut to five characters is offered again.
    tables.allocate(1, u"12,5"_s);
    QVERIFY(tables.block.CekCodCaricato(u"Q7654321"_s));
    QVERIFY(!tables.block.CekCodCaricato(u" B1"_s));
    QCOMPARE(tables.block.openPickList(),
             (QStringList{u"b1   Rinterri L.-20,00"_s, u"Q7654321Oneri L.0,00"_s}));
    QCOMPARE(tables.state(), u"B1|Scavi|\nQ7654|Oneri|12,00\n||\n@3,0 = 12,00"_s);
    QVERIFY_THROWS_EXCEPTION(BoundsError, tables.block.pick(2));
}

void TestAllocationBlock::fullGridTellsSo()
{
    Tables tables({u"B1;Scavi;1.500,00"_s});
    tables.allocate(0, u"1"_s);
    Answers answers(MessageAnswer::Yes);
    QVERIFY(tables.block.openPickList().isEmpty());
    QCOMPARE(answers.asked, QStringList{u"i Nessun elemento da inserire disponibile"_s});
    QCOMPARE(tables.state(), u"B1|Scavi|1,00\n@1,2 = 1,00"_s);
}

void TestAllocationBlock::abandonedInsertionLeavesNoRow()
{
    Tables tables(Items);
    tables.block.openPickList();
    tables.block.leavePickList();
    QCOMPARE(tables.state(), u"@0,2 = 0,00"_s);
    tables.allocate(0, u"3"_s);
    tables.block.openPickList();
    tables.block.leavePickList();
    QCOMPARE(tables.state(), u"B1|Scavi|3,00\n@1,2 = 3,00"_s);
}

void TestAllocationBlock::pickListHas201Lines()
{
    QStringList items;
    for (int i = 0; i < 202; ++i)
        items.append(u"V%1;Voce;1,00"_s.arg(i));
    Tables tables(items);
    QVERIFY_THROWS_EXCEPTION(BoundsError, tables.block.openPickList());
    QCOMPARE(tables.state(), u"@0,0 = 0,00"_s);

    tables.overview.setRows(202); // header and 201 items
    QCOMPARE(tables.block.openPickList().size(), 201);
    tables.block.pick(200);
    QCOMPARE(tables.grid.text(1, 0), u"V200"_s);
}

void TestAllocationBlock::editorOpensOnAmountsOnly()
{
    Tables tables(Items);
    tables.allocate(0, u"1"_s);
    for (int row = 0; row < 2; ++row) {
        for (int column = 0; column < 3; ++column) {
            tables.grid.setRow(row);
            tables.grid.setColumn(column);
            QCOMPARE(tables.block.isCurrentCellEditable(), row == 1 && column == 2);
        }
    }
}

void TestAllocationBlock::editorValueReachesItsCell()
{
    Tables tables(Items);
    tables.allocate(0, u"8080.35"_s);
    tables.allocate(1, u"8080,35"_s);
    QCOMPARE(tables.state(), u"B1|Scavi|8.080,35\nQ7654|Oneri|8.080,00\n@2,2 = 16.160,35"_s);

    // The user clicks elsewhere while the editor is open: the value belongs to its own cell.
    tables.block.editorEntered();
    tables.grid.setRow(1);
    tables.grid.setColumn(1);
    tables.block.editorLeft(u"-0.005"_s);
    QCOMPARE(tables.state(), u"B1|Scavi|8.080,35\nQ7654|Oneri|-0,01\n@1,1 = 8.080,34"_s);
    tables.grid.setColumn(2);
    tables.block.editorEntered();
    tables.block.editorConfirmed(u"mille"_s);
    QCOMPARE(tables.state(), u"B1|Scavi|0,00\nQ7654|Oneri|-0,01\n@1,2 = -0,01"_s);
}

void TestAllocationBlock::deletionReachesLedgerAtOnce()
{
    TestArchive archive;
    for (const QString &code : {u"B1"_s, u"L'8"_s, u"Z"_s})
        archive.build().addAllocation(Number, code, u"voce"_s, Currency::fromWhole(5));
    archive.build().addAllocation(Number + 1, u"B1"_s, u"altrui"_s, Currency::fromWhole(9));
    const QString stored = u"SELECT RelNpag, Cod FROM Spese ORDER BY rowid"_s;

    Answers answers(MessageAnswer::Yes);
    Tables tables({u"B1;Scavi;9,00"_s, u"L'8;Oneri;9,00"_s, u"NEW;Nuova;9,00"_s});
    for (const QString &amount : {u"10"_s, u"20"_s, u"40"_s})
        tables.allocate(0, amount);
    tables.grid.setRow(1);
    tables.block.deleteCurrentRow(archive.values(), Number);
    QCOMPARE(tables.state(), u"L'8|Oneri|20,00\nNEW|Nuova|40,00\n@1,2 = 60,00"_s);
    QCOMPARE(archive.ledgerRows(stored), u"4|L'8\n4|Z\n5|B1"_s);

    tables.grid.setRow(2); // never saved
    tables.block.deleteCurrentRow(archive.values(), Number);
    tables.block.deleteCurrentRow(archive.values(), Number);
    QCOMPARE(archive.ledgerRows(stored), u"4|Z\n5|B1"_s);
    QCOMPARE(tables.state(), u"@0,2 = 0,00"_s);
    tables.block.deleteCurrentRow(archive.values(), Number); // header alone: no question
    QCOMPARE(answers.asked,
             (QStringList{u"? Vuoi eliminare il Cod. B1?"_s, u"? Vuoi eliminare il Cod. NEW?"_s,
                          u"? Vuoi eliminare il Cod. L'8?"_s}));
    QCOMPARE(tables.block.openPickList().size(), 3);
}

void TestAllocationBlock::deletionAnsweredNo()
{
    Tables tables(Items);
    tables.allocate(0, u"10"_s);
    tables.grid.setText(1, 2, u"11,00"_s);
    Answers answers(MessageAnswer::No);
    tables.block.deleteCurrentRow(ProgramValues(), Number); // would fail on reaching for the ledger
    QCOMPARE(tables.state(), u"B1|Scavi|11,00\n@1,2 = 11,00"_s);
    QCOMPARE(answers.asked.size(), 1);
}

void TestAllocationBlock::confirmationComparesTexts()
{
    Tables tables(Items);
    tables.allocate(0, u"3100"_s);
    for (const MessageAnswer answer : {MessageAnswer::No, MessageAnswer::Yes}) {
        Answers answers(answer);
        const bool yes = answer == MessageAnswer::Yes;
        QVERIFY(tables.block.confirmTotal(u"3.100,00"_s));
        QCOMPARE(answers.asked, QStringList());
        QCOMPARE(tables.block.confirmTotal(u"3.099,99"_s), yes);
        QCOMPARE(tables.block.confirmTotal(u"3100.00"_s), yes);
        QCOMPARE(answers.asked, QStringList(2, u"? Gli importi non coincidono continuare ? "_s));
    }
}

QTEST_GUILESS_MAIN(TestAllocationBlock)
#include "test_allocation_block.moc"
