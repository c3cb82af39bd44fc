#include "database/sql_text.h"

#include "database/text_order.h"

#include <QRegularExpression>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

QString withOrderAndFile(const QString &sql, const QString &schema)
{
    static const QRegularExpression place(
        uR"(('[^']*+(?:''[^']*+)*+')|(\b(?:FROM|JOIN)\s+)(?=[\w\["])|\bORDER\s+BY\b[^']*$)"_s,
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression term(
        u"([^\\s,;][^,;]*?)((?:\\s+(?:ASC|DESC))?\\s*(?:[,;]|$))"_s,
        QRegularExpression::CaseInsensitiveOption);
    const QString order = u" COLLATE "_s + QLatin1StringView(TextOrderName);
    QString result;
    qsizetype end = 0;
    for (const QRegularExpressionMatch &match : place.globalMatch(sql)) {
        result += QStringView(sql).sliced(end, match.capturedStart() - end);
        QString part = match.captured(); // else all of ORDER BY with its terms
        if (match.hasCaptured(1))
            result += part + order;
        else if (match.hasCaptured(2))
            result += part + schema + u'.';
        else
            result += part.replace(term, u"\\1"_s + order + u"\\2"_s);
        end = match.capturedEnd();
    }
    return result += QStringView(sql).sliced(end);
}

QString fieldSql(const FieldDef &field)
{
    const QString name = QuotedName(field.name);
    QString declaration = name + u' ' + DeclaredType(field);
    if (!RefusesEmptyText(field))
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

EngineQuery EngineQueryFor(const QString &sql, const QString &schema)
{
    static const QRegularExpression single(
        uR"re(^(\s*SELECT\s+)\*(\s+FROM\s+(?:(\w+)|\[([^\]]+)\]|"([^"]+)")\s*(?:;|$|(?:WHERE|ORDER)\b)))re"_s,
        QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = single.match(sql);
    return {withOrderAndFile(sql, schema),
            match.captured(3) + match.captured(4) + match.captured(5), match.capturedEnd(1)};
}

QString EngineQuery::textWithRowId(const QString &rowIdName) const
{
    return QString(text).insert(columns, rowIdName + u", "_s);
}

QString RowIdName(const QList<FieldDef> &fields)
{
    for (const QString &name : {u"_rowid_"_s, u"rowid"_s, u"oid"_s}) {
        if (IndexOfField(fields, name) < 0)
            return name;
    }
    return {};
}

QString QuotedName(const QString &name)
{
    return u'"' + QString(name).replace(u'"', u"\"\""_s) + u'"';
}

QString QualifiedName(const QString &schema, const QString &table)
{
    return schema + u'.' + QuotedName(table);
}

QString CreateTableSql(const TableDef &table, const QString &schema)
{
    QStringList fields;
    for (const FieldDef &field : table.fields())
        fields.append(fieldSql(field));
    return u"CREATE TABLE %1 (%2)"_s.arg(QualifiedName(schema, table.name()), fields.join(u", "_s));
}

QString InsertSql(const QString &table, const QStringList &fields)
{
    const QString into = u"INSERT OR ABORT INTO "_s + table;
    if (fields.isEmpty())
        return into + u" DEFAULT VALUES"_s;
    const QStringList marks(fields.size(), u"?"_s);
    return into + u" ("_s + quoted(fields).join(u", "_s) + u") VALUES ("_s + marks.join(u", "_s) +
           u')';
}

QString UpdateSql(const QString &table, const QStringList &fields, const QString &rowIdName)
{
    return u"UPDATE OR ABORT "_s + table + u" SET "_s + quoted(fields).join(u" = ?, "_s) +
           u" = ? WHERE "_s + rowIdName + u" = ?"_s;
}

QString DeleteSql(const QString &table, const QString &rowIdName)
{
    return u"DELETE FROM "_s + table + u" WHERE "_s + rowIdName + u" = ?"_s;
}

} // namespace saldoro
