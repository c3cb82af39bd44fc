#include "exchange/csv_reader.h"
#include "fuzzer.h"

#include <QRegularExpression>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

QString shown(const QString &cell)
{
    return cell.isNull() ? u"-"_s : u'<' + cell;
}

QString readQuickly(const QString &text)
{
    CsvReader reader(text, u';');
    QString rows;
    CsvRow row;
    try {
        while (reader.next(row)) {
            rows += u'\n' + QString::number(row.line);
            for (const QString &cell : row.cells)
                rows += shown(cell);
        }
    } catch (const CsvFault &) {
        rows += u"\nfault"_s;
    }
    return rows;
}

/** Cell by cell by a regular expression. */
QString readSlowly(const QString &text)
{
    static const QRegularExpression cellAndEnd(
        u"\\G(?:\"((?:[^\"]|\"\")*)\"|([^\";\\r\\n]*))(;|\\r?\\n|\\z)"_s);
    QString rows;
    QString row = u"\n1"_s;
    for (qsizetype at = 0; at < text.size() || text.endsWith(u';');) {
        const QRegularExpressionMatch match = cellAndEnd.match(text, at);
        if (!match.hasMatch())
            return rows + u"\nfault"_s;
        const bool isQuoted = match.hasCaptured(1);
        row += match.capturedLength() == match.capturedLength(3)
                   ? u"-"_s
                   : u'<' + match.captured(isQuoted ? 1 : 2).replace(u"\"\""_s, u"\""_s);
        at = match.capturedEnd();
        if (match.captured(3) == ";"_L1)
            continue;
        rows += row;
        row = u'\n' + QString::number(text.first(at).count(u'\n') + 1);
        if (match.captured(3).isEmpty())
            break;
    }
    return rows;
}

} // namespace

void FuzzCsv(Random &random)
{
    const QString text =
        random.text({u"\""_s, u"\""_s, u"\"\""_s, u";"_s, u";"_s, u"\n"_s, u"\r\n"_s, u"\r"_s,
                     u","_s, u" "_s, u"a"_s, u"è"_s, u"\";\""_s, u"\"\n"_s, QString(QChar(0))},
                    14);
    RequireSame(text, readQuickly(text), readSlowly(text));
}

} // namespace saldoro
