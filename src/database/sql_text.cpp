#include "database/sql_text.h"

#include "database/text_order.h"

#include <QRegularExpression>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** The position of a record in its table, as the engine calls it. */
constexpr QLatin1StringView rowIdName("_rowid_");

QString withOrderOfTexts(const QString &sql)
{
    static const QRegularExpression compared(u"('[^']*+(?:''[^']*+)*+')|\\bORDER\\s+BY\\b[^']*$"_s,
                                             QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression term(
        u"([^\\s,;][^,;]*?)((?:\\s+(?:ASC|DESC))?\\s*(?:[,;]|$))"_s,
        QRegularExpression::CaseInsensitiveOption);
    const QString order = u" COLLATE "_s + QLatin1StringView(TextOrderName);
    QString result;
    qsizetype end = 0;
    for (const QRegularExpressionMatch &match : compared.globalMatch(sql)) {
        result += QStringView(sql).sliced(end, match.capturedStart() - end);
        QString part = match.captured(); // a text literal, or all of ORDER BY with its first term
        result +=
            match.hasCaptured(1) ? part + order : part.replace(term, u"\\1"_s + order + u"\\2"_s);
        end = match.capturedEnd();
    }
    return result += QStringView(sql).sliced(end);
}

QString fieldSql(const FieldDef &field)
{
    const QString name = QuotedName(field.name);
    QString declaration = name + u' ' + DeclaredType(field);
    if (field.allowZeroLength || (!IsText(field) && field.type != FieldType::Date))
        return declaration;
    return declaration + u" CONSTRAINT "_s + QuotedName(ZeroLengthConstraint + field.name) +
           u" CHECK ("_s + name + u" <> '')"_s;
}

QStringList quoted(const QStringList &names)
{
    QStringList result;
    for (const QString &name : names)
        result.append(QuotedName(name));
    return result;
}

} // namespace

EngineQuery EngineQueryFor(const QString &sql)
{
    static const QRegularExpression single(
        uR"re(^(\s*SELECT\s+)\*(\s+FROM\s+(?:(\w+)|\[([^\]]+)\]|"([^"]+)")\s*(?:;|$|(?:WHERE|ORDER)\b)))re"_s,
        QRegularExpression::CaseInsensitiveOption);
    EngineQuery query;
    query.text = withOrderOfTexts(sql);
    const QRegularExpressionMatch match = single.match(query.text);
    if (!match.hasMatch())
        return query;
    query.singleTable = match.captured(3) + match.captured(4) + match.captured(5);
    query.textWithRowId = query.text;
    query.textWithRowId.insert(match.capturedEnd(1), rowIdName + u", "_s);
    return query;
}

QString QuotedName(const QString &name)
{
    return u'"' + QString(name).replace(u'"', u"\"\""_s) + u'"';
}

QString CreateTableSql(const TableDef &table)
{
    QStringList fields;
    for (const FieldDef &field : table.fields())
        fields.append(fieldSql(field));
    return u"CREATE TABLE "_s + QuotedName(table.name()) + u" ("_s + fields.join(u", "_s) + u')';
}

QString InsertSql(const QString &table, const QStringList &fields)
{
    const QString into = u"INSERT INTO "_s + QuotedName(table);
    if (fields.isEmpty())
        return into + u" DEFAULT VALUES"_s;
    const QStringList marks(fields.size(), u"?"_s);
    return into + u" ("_s + quoted(fields).join(u", "_s) + u") VALUES ("_s + marks.join(u", "_s) +
           u')';
}

QString UpdateSql(const QString &table, const QStringList &fields)
{
    return u"UPDATE "_s + QuotedName(table) + u" SET "_s + quoted(fields).join(u" = ?, "_s) +
           u" = ? WHERE "_s + rowIdName + u" = ?"_s;
}

QString DeleteSql(const QString &table, const QStringList & /*none*/)
{
    return u"DELETE FROM "_s + QuotedName(table) + u" WHERE "_s + rowIdName + u" = ?"_s;
}

} // namespace saldoro
