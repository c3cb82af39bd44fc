#include "form_driver.h"
#include "invoice_model.h"

#include <QListWidget>
#include <QPlainTextEdit>
#include <QRandomGenerator>

using namespace saldoro;
using namespace Qt::StringLiterals;

/** Random sessions by keys and clicks on both real forms: after each step all that they show, and
 * at the end all that is stored, is compared with a calculation of its own. */
class TestInvoiceSessions : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void sessions();

private:
    void finish();
    void step();
    void moveOn();
    void goTo(const QString &name);
    void write(const QString &text);
    void fillText();
    void fillDate();
    void fillAmount();
    void insertItem();
    void editItem();
    void amountOfItem();
    void deleteItem();
    QString wanted() const;
    QString seen() const;

    int upTo(qsizetype bound) { return m_random.bounded(static_cast<int>(bound)); }
    QString any(const char *names)
    {
        const QStringList list = QString::fromLatin1(names).split(u'|');
        return list[upTo(list.size())];
    }
    bool isAmount(const QString &name) const { return m->amountNames.contains(name); }

    FormDriver d;
    QRandomGenerator m_random{4182};
    Books m_books;
    std::unique_ptr<FormModel> m;
    QString m_focus;
    QStringList m_messages;
    QStringList m_log;
};

void TestInvoiceSessions::initTestCase()
{
    // A code that a criterion must double, one that a pick cuts, a description that the ledger
    // cuts.
    for (const QStringList &item :
         {QStringList{u"L'8"_s, QString(60, u'v')}, QStringList{u"Q7654321"_s, u"Oneri"_s}}) {
        d.overview.setRows(d.overview.rows() + 1);
        for (const int column : {0, 1})
            d.overview.setText(d.overview.rows() - 1, column, item.at(column));
    }
}

QString TestInvoiceSessions::wanted() const
{
    QStringList all;
    for (const QString &name : m->amountNames)
        all += m->amounts.text(name);
    all += m->texts.values();
    for (const QStringList &row : m->rows)
        all += row.join(u'|');
    return (all << m->total() << m_focus << m_messages).join(u'\n');
}

QString TestInvoiceSessions::seen() const
{
    QStringList all;
    for (const QString &name : m->amountNames + m->texts.keys())
        all += name == u"Memo" ? d.find<QPlainTextEdit>(name)->toPlainText() : d.text(name);
    if (!d.allocations().isEmpty())
        all += d.allocations().split(u';');
    return (all << d.text(u"Text3"_s) << d.focused() << d.messages).join(u'\n');
}

void TestInvoiceSessions::goTo(const QString &name)
{
    m_log += u"to "_s + name;
    d.focus(name);
    if (m_focus == name)
        return;
    if (isAmount(m_focus))
        m->amounts.leave(m_focus);
    m_focus = name;
    if (isAmount(name))
        m->amounts.enter(name);
}

/** By Enter or Tab to what comes next. */
void TestInvoiceSessions::moveOn()
{
    const auto place = m->order.indexOf(m_focus);
    if (place < 0 || m_focus == m->order.last())
        return goTo(m->order.at(upTo(m->order.size())));
    const bool isLine = m_focus != u"Memo" && m_focus != u"Command5";
    d.press(isLine && upTo(2) ? Qt::Key_Return : Qt::Key_Tab);
    goTo(m->order.at(place + 1)); // where the focus is by now, if all is well
}

void TestInvoiceSessions::write(const QString &text)
{
    m_log += u"write "_s + text;
    if (text.isEmpty())
        d.press(Qt::Key_Backspace);
    else
        d.type(text);
}

void TestInvoiceSessions::fillText()
{
    goTo(any("Text1_0|Text1_1|Text1_3|Mandato|Memo"));
    d.press(Qt::Key_A, Qt::ControlModifier);
    QString &text = m->texts[m_focus];
    text = any("D'Arco S|7/B|100*|");
    write(text);
    if (m_focus == u"Memo" && upTo(2)) {
        d.press(Qt::Key_Return);
        text += u'\n';
    }
}

void TestInvoiceSessions::fillDate()
{
    const QString name = m->order.at(upTo(2) ? 3 : m->order.size() - 3);
    goTo(name);
    d.press(Qt::Key_A, Qt::ControlModifier);
    if (upTo(3) == 0) { // it holds the focus against keys and clicks
        write(u"30/2/2024"_s);
        d.press(upTo(2) ? Qt::Key_Return : Qt::Key_Backtab);
        d.click(any("Text1_1|Command1|Command3|Memo"));
        m->texts[name] = u"30/02/2024"_s;
        QCOMPARE(seen(), wanted());
        d.press(Qt::Key_A, Qt::ControlModifier);
    }
    const QString typed =
        any("01122003>01/12/2003|1/2/03>01/02/2003|29/2/96>29/02/1996|>__/__/____");
    write(typed.section(u'>', 0, 0));
    m->texts[name] = typed.section(u'>', 1);
    moveOn();
}

void TestInvoiceSessions::fillAmount()
{
    if (upTo(3) || !isAmount(m_focus))
        goTo(m->amountNames.at(upTo(m->amountNames.size())));
    QString text = QString::number(upTo(90000000) / 100.0, 'f', 2);
    if (m_focus == u"Text2_1" || m_focus == u"Text5_0")
        text = any("22|20%|4,5||-4| 1 0|x|100");
    else if (upTo(3) == 0)
        text = any("|0|12,5|abc|-3.25|7.|.5|1 2 3.4 euro|-|4.321,09|0.005");
    if (upTo(5)) {
        d.press(Qt::Key_A, Qt::ControlModifier);
        write(text);
        m->amounts.text(m_focus) = text;
    }
    if (upTo(2))
        moveOn();
}

void TestInvoiceSessions::insertItem()
{
    QList<QStringList> offered;
    for (int row = 1; row < d.overview.rows(); ++row) {
        const QString code = d.overview.text(row, 0);
        if (std::none_of(m->rows.cbegin(), m->rows.cend(),
                         [&code](const QStringList &cells) { return cells.at(0) == code; }))
            offered += {code, d.overview.text(row, 1), d.overview.text(row, 4)};
    }
    goTo(u"Command3"_s);
    d.press(Qt::Key_Return);
    const auto *list = d.find<QListWidget>(u"List1"_s);
    QCOMPARE(list->count(), offered.size());
    const int line = upTo(offered.size());
    const QStringList &item = offered.at(line);
    QCOMPARE(list->item(line)->text(),
             item.at(0).leftJustified(5) + item.at(1) + u" L."_s + item.at(2));
    if (upTo(5) == 0) {
        d.press(upTo(2) ? Qt::Key_Escape : Qt::Key_Backtab);
        m->row = static_cast<int>(m->rows.size());
        return goTo(d.focused());
    }
    for (int i = 0; i < line; ++i)
        d.press(Qt::Key_Down);
    d.press(Qt::Key_Return);
    m->rows += {item.at(0).left(5), item.at(1), QString()};
    m->row = static_cast<int>(m->rows.size());
    amountOfItem();
}

void TestInvoiceSessions::editItem()
{
    if (m->rows.isEmpty())
        return;
    goTo(u"MSFlexGrid1"_s);
    for (const int row = 1 + upTo(m->rows.size()); m->row != row; m->row += m->row < row ? 1 : -1)
        d.press(m->row < row ? Qt::Key_Down : Qt::Key_Up);
    d.press(Qt::Key_Return);
    QCOMPARE(d.text(u"edtTxt"_s), m->rows.at(m->row - 1).at(2));
    amountOfItem();
}

/** Writes in the open editor and leaves it in one of many ways. */
void TestInvoiceSessions::amountOfItem()
{
    QCOMPARE(d.focused(), u"edtTxt"_s);
    m_log += u"row %1"_s.arg(m->row);
    const QString text = any("1250.5|8080,35|-0.005|mille|300|");
    write(text);
    m->rows[m->row - 1][2] = AmountOracle::shown(AmountOracle::leading(text));
    m_focus = u"MSFlexGrid1"_s;
    const QString way = any("|Text1_1|Text2_0|Memo|");
    if (way.isEmpty())
        d.press(upTo(2) ? Qt::Key_Return : Qt::Key_Tab);
    else
        d.click(way);
}

void TestInvoiceSessions::deleteItem()
{
    goTo(u"Command4"_s);
    d.answer = upTo(3) ? MessageAnswer::Yes : MessageAnswer::No;
    d.press(Qt::Key_Return);
    if (m->row == 0)
        return;
    const QString code = m->rows.at(m->row - 1).at(0);
    m_messages += u"Vuoi eliminare il Cod. %1?"_s.arg(code);
    if (d.answer == MessageAnswer::No)
        return;
    m_log += u"delete row %1"_s.arg(m->row);
    m->rows.removeAt(m->row - 1);
    m->row = std::min(m->row, static_cast<int>(m->rows.size()));
    if (const QStringList *stored = m_books.allocation(m->number, code))
        m_books.allocations.removeOne(*stored);
}

void TestInvoiceSessions::step()
{
    using Step = void (TestInvoiceSessions::*)();
    static const QList<Step> steps{&TestInvoiceSessions::fillText,   &TestInvoiceSessions::fillDate,
                                   &TestInvoiceSessions::insertItem, &TestInvoiceSessions::editItem,
                                   &TestInvoiceSessions::deleteItem, &TestInvoiceSessions::moveOn};
    const int chosen = upTo(2 * steps.size());
    (this->*(steps.value(chosen, &TestInvoiceSessions::fillAmount)))();
}

void TestInvoiceSessions::finish()
{
    if (m->texts[u"Text1_0"_s].isEmpty() || upTo(5) == 0) {
        d.click(u"Command2"_s);
        return;
    }
    goTo(u"Command1"_s);
    const bool differs = m->total() != m->amounts.text(u"Text2_3"_s);
    d.answer = upTo(4) ? MessageAnswer::Yes : MessageAnswer::No;
    if (differs)
        m_messages += u"Gli importi non coincidono continuare ? "_s;
    d.press(Qt::Key_Return);
    const bool stays = differs && d.answer == MessageAnswer::No;
    if (!stays) {
        m->saveTo(m_books);
        QVERIFY(m_books.print().contains(d.values.MandateText));
    }
    QCOMPARE(d.messages, m_messages);
    QCOMPARE(d.form->isVisible(), stays);
}

void TestInvoiceSessions::sessions()
{
    for (int session = 0; session < 200; ++session) {
        const auto kind = upTo(2) ? CreditorKind::Company : CreditorKind::Professional;
        m = std::make_unique<FormModel>(kind, 1 + upTo(6), m_books);
        m_focus = u"Text1_0"_s;
        m_messages.clear();
        d.messages.clear();
        m_log = {u"session %1"_s.arg(session)};
        d.open(kind, m->number);
        d.values.CurrentPaymentNumber = 99; // another form's business
        QCOMPARE(seen(), wanted());
        for (int steps = upTo(25); steps > 0; --steps) {
            step();
            QVERIFY2(!QTest::currentTestFailed() && seen() == wanted(),
                     qPrintable(m_log.join(u", "_s) + u"\nshows\n"_s + seen() + u"\nwanted\n"_s +
                                wanted()));
        }
        finish();
        QCOMPARE(Books::read(d.archive), m_books.print());
    }
}

QTEST_MAIN(TestInvoiceSessions)
#include "test_invoice_sessions.moc"
