#include "database/column_info.h"

#include <QRegularExpression>
#include <QStringView>

#include <array>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

struct Mark
{
    QStringView part; ///< occurs in the declared type
    ColumnKind kind;
};

/** The first mark that occurs decides, so the longer words stand before those they contain. */
constexpr std::array<Mark, 25> Marks{{
    {u"CHAR", ColumnKind::Text},         {u"TEXT", ColumnKind::Text},
    {u"CLOB", ColumnKind::Text},         {u"MEMO", ColumnKind::Text},
    {u"CURRENCY", ColumnKind::Currency}, {u"MONEY", ColumnKind::Currency},
    {u"DATE", ColumnKind::Date},         {u"TIME", ColumnKind::Date},
    {u"SMALLINT", ColumnKind::Whole16},  {u"INTEGER16", ColumnKind::Whole16},
    {u"INT2", ColumnKind::Whole16},      {u"SHORT", ColumnKind::Whole16},
    {u"BIGINT", ColumnKind::Whole64},    {u"INT8", ColumnKind::Whole64},
    {u"INT", ColumnKind::Whole32},       {u"LONG", ColumnKind::Whole32},
    {u"COUNTER", ColumnKind::Whole32},   {u"BYTE", ColumnKind::Whole16},
    {u"BOOL", ColumnKind::Whole16},      {u"REAL", ColumnKind::Floating},
    {u"DOUB", ColumnKind::Floating},     {u"FLOA", ColumnKind::Floating},
    {u"SINGLE", ColumnKind::Floating},   {u"NUM", ColumnKind::Floating},
    {u"DEC", ColumnKind::Floating},
}};

} // namespace

ColumnInfo ColumnFromDeclaration(const QString &name, const QString &declaredType)
{
    ColumnInfo column;
    column.name = name;
    for (const Mark &mark : Marks) {
        if (declaredType.contains(mark.part, Qt::CaseInsensitive)) {
            column.kind = mark.kind;
            break;
        }
    }
    if (column.kind == ColumnKind::Text) {
        static const QRegularExpression bound(uR"(\(\s*(\d{1,9})\s*\))"_s);
        column.size = bound.match(declaredType).captured(1).toInt();
    }
    return column;
}

} // namespace saldoro
