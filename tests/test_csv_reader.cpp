#include "exchange/cell_rows.h"
#include "exchange/cell_values.h"
#include "random_seed.h"

#include <QRegularExpression>
#include <QTest>

#include <random>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

constexpr int cases = 100'000;

QString readQuickly(const QString &text)
{
    const TextRows read = RowsOfText(text, u';');
    QString rows;
    for (const CellRow &row : read.rows) {
        rows += u'\n' + QString::number(row.line);
        for (const QString &cell : row.cells)
            rows += cell.isNull() ? u"-"_s : u'<' + cell;
    }
    return read.fault ? rows + u"\nfault"_s : rows;
}

/** Cell by cell by a regular expression. */
QString readSlowly(const QString &text)
{
    static const QRegularExpression cellAndEnd(
        u"\\G(?:\"((?:[^\"]|\"\")*)\"|([^\";\\r\\n]*))(;|\\r?\\n|\\r|\\z)"_s);
    static const QRegularExpression lineEnd(u"\\r?\\n|\\r"_s);
    QString rows;
    QString row = u"\n1"_s;
    qsizetype line = 1;
    for (qsizetype at = 0; at < text.size() || text.endsWith(u';');) {
        const QRegularExpressionMatch match = cellAndEnd.match(text, at);
        if (!match.hasMatch())
            return rows + u"\nfault"_s;
        const bool isQuoted = match.hasCaptured(1);
        row += match.capturedLength() == match.capturedLength(3)
                   ? u"-"_s
                   : u'<' + match.captured(isQuoted ? 1 : 2).replace(u"\"\""_s, u"\""_s);
        at = match.capturedEnd();
        line += match.captured(1).split(lineEnd).size() - 1;
        if (match.captured(3) == ";"_L1)
            continue;
        rows += row;
        row = u'\n' + QString::number(++line);
        if (match.captured(3).isEmpty())
            break;
    }
    return rows;
}

QString amountSlowly(const QString &text, Notation notation)
{
    static const QString before = u"\\A\\s*(?:€\\s*)?([-+]?)\\s*(?:€\\s*)?"_s;
    static const QString behind = u"\\s*€?\\s*\\z"_s;
    static const QRegularExpression italian(
        before + u"([1-9][0-9]{0,2}(?:\\.[0-9]{3})+|[0-9]+)(?:,([0-9]{1,4}))?"_s + behind);
    static const QRegularExpression international(
        before + u"([1-9][0-9]{0,2}(?:,[0-9]{3})+|[0-9]+)(?:\\.([0-9]{1,2}|[0-9]{4}))?"_s + behind);
    const auto match = (notation == Notation::Italian ? italian : international).match(text);
    bool fits = match.hasMatch() && text.count(u'€') < 2;
    const qint64 value = (match.captured(1) + match.captured(2).remove(u'.').remove(u',') +
                          match.captured(3).leftJustified(4, u'0'))
                             .toLongLong(fits ? &fits : nullptr);
    return fits ? QString::number(value) : u"none"_s;
}

} // namespace

/** Random files and amounts beside slow readers of them, other ones in each run. */
class TestCsvReader : public QObject
{
    Q_OBJECT

private slots:
    void files()
    {
        for (int left = cases; left > 0; --left) {
            const QString text = randomText({u"\""_s, u"\""_s, u"\"\""_s, u";"_s, u";"_s, u"\n"_s,
                                             u"\r\n"_s, u"\r"_s, u","_s, u" "_s, u"a"_s, u"è"_s,
                                             u"\";\""_s, u"\"\n"_s, QString(QChar(0))},
                                            14);
            QCOMPARE(text + u" -> "_s + readQuickly(text), text + u" -> "_s + readSlowly(text));
        }
    }

    void amounts()
    {
        for (int left = cases; left > 0; --left) {
            const QString text = randomText({u"€"_s, u" "_s, u"-"_s, u"+"_s, u""_s, u""_s}, 3) +
                                 randomText({u"1"_s, u"234"_s, u".567"_s, u"."_s, u","_s, u".00"_s,
                                             u"922337203685477"_s, u"5807"_s, u"5808"_s, u"e"_s},
                                            6) +
                                 randomText({u"€"_s, u" "_s, u"-"_s, u""_s}, 2);
            for (const Notation notation : {Notation::Italian, Notation::International}) {
                const auto read = AmountOf(text, notation);
                QCOMPARE(text + u'=' + (read ? QString::number(read->scaled()) : u"none"_s),
                         text + u'=' + amountSlowly(text, notation));
                QVERIFY2(!read || AmountOf(AmountCell(*read), Notation::Italian) == read,
                         qPrintable(text));
            }
        }
    }

private:
    /** Up to @p most pieces in a row. */
    QString randomText(const QStringList &pieces, int most)
    {
        QString text;
        for (auto left = m_random() % static_cast<unsigned>(most + 1); left > 0; --left)
            text += pieces[static_cast<qsizetype>(m_random() % static_cast<size_t>(pieces.size()))];
        return text;
    }

    std::mt19937 m_random{RandomSeed()};
};

QTEST_GUILESS_MAIN(TestCsvReader)
#include "test_csv_reader.moc"
