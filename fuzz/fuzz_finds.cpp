#include "common/amount_text.h"
#include "database/criterion.h"
#include "database/database.h"
#include "database/like_pattern.h"
#include "database/sql_text.h"
#include "fuzzer.h"
#include "text_reference.h"

#include <QRegularExpression>
#include <QTemporaryDir>

#include <algorithm>
#include <functional>
#include <optional>
#include <utility>
#include <variant>
#include <vector>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

QString randomPattern(Random &random)
{
    static const QStringList special = {u"*"_s,     u"?"_s,     u"#"_s,  u"[a-e]"_s, u"[!a]"_s,
                                        u"[é-è]"_s, u"[0-9]"_s, u"[]"_s, u"[!]"_s,   u"[-a]"_s,
                                        u"[a-]"_s,  u"["_s,     u"]"_s,  u"[z-a]"_s, u"[*?#]"_s,
                                        u"[à]"_s,   u"[A-Zé]"_s};
    QString pattern;
    for (int left = random.below(7); left > 0; --left)
        pattern += random.chance(2) ? random.pick(special) : random.pick(HostilePieces());
    return pattern;
}

QString shown(const std::optional<Criterion> &criterion)
{
    if (!criterion)
        return u"unreadable"_s;
    const bool isLike = criterion->comparison == Criterion::Operator::Like;
    const auto *number = std::get_if<qint64>(&criterion->literal);
    return criterion->field + (isLike ? u" like "_s : u" = "_s) +
           (number != nullptr ? QString::number(*number)
                              : u'\'' + std::get<QString>(criterion->literal));
}

std::optional<Criterion> readSlowly(const QString &text)
{
    static const QRegularExpression whole(
        uR"(\A\s*(?:\[([^\]]+)\]|(?![0-9])([\p{L}\p{N}_]++))\s*(=|(?i:like)(?![\p{L}\p{N}_]))\s*)"
        uR"((?:'((?:[^']|'')*)'|([+-]?[0-9]+))\s*\z)"_s,
        QRegularExpression::UseUnicodePropertiesOption |
            QRegularExpression::DotMatchesEverythingOption);
    const auto match = whole.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    const bool isLike = match.captured(3) != "="_L1;
    Criterion result;
    result.field = match.captured(1) + match.captured(2);
    result.comparison = isLike ? Criterion::Operator::Like : Criterion::Operator::Equals;
    if (!match.hasCaptured(5)) {
        result.literal = match.captured(4).replace(u"''"_s, u"'"_s);
        return result;
    }
    bool fits = false;
    result.literal = match.captured(5).toLongLong(&fits);
    return fits && !isLike ? std::optional(result) : std::nullopt;
}

/** A table of texts beside a plain list of the same. */
class Table
{
public:
    explicit Table(Random &random)
        : m_random(random)
        , m_database(make(m_folder.path() + u"\\prova.mdb"_s))
        , m_records(m_database.openRecordSet(u"SELECT * FROM Prova ORDER BY Numero"_s))
    {
        for (int row = 0; row < 8; ++row)
            add();
    }

    void add()
    {
        m_records.addNew();
        m_records.set(u"Numero"_s, static_cast<qint32>(m_texts.size()));
        m_records.set(u"Testo"_s, *m_texts.emplace_back(m_random.text(HostilePieces(), 2)));
        m_records.update();
    }
    void changeFirst(const QString &criterion)
    {
        m_records.findFirst(criterion);
        if (m_records.noMatch())
            return;
        const auto row = static_cast<size_t>(m_records.field(u"Numero"_s).integer());
        if (m_random.chance(2)) {
            m_records.deleteRecord();
            m_texts[row].reset();
            return;
        }
        m_records.edit();
        m_texts[row] = m_random.text(HostilePieces(), 2) + u'z';
        m_records.set(u"Testo"_s, *m_texts[row]);
        m_records.update();
    }

    /** What one of the rows holds; nothing when it is deleted. */
    QString anyText() const
    {
        return m_texts[static_cast<size_t>(m_random.below(static_cast<int>(m_texts.size())))]
            .value_or(QString());
    }

    /** The numbers of the rows that a find comes to. */
    QString found(const QString &criterion)
    {
        QStringList numbers;
        for (m_records.findFirst(criterion); !m_records.noMatch(); m_records.findNext(criterion))
            numbers += m_records.field(u"Numero"_s).text();
        return numbers.join(u' ');
    }
    QString foundSlowly(const std::function<bool(const QString &)> &meets) const
    {
        QStringList numbers;
        for (size_t row = 0; row < m_texts.size(); ++row) {
            if (m_texts[row] && meets(*m_texts[row]))
                numbers += QString::number(row);
        }
        return numbers.join(u' ');
    }

    /** The texts that a query gives, and what they should be in their order. */
    QString queried(const QString &sql) const
    {
        QStringList texts;
        RecordSet records = m_database.openRecordSet(sql);
        for (; !records.eof(); records.moveNext())
            texts += records.field(u"Testo"_s).text() + u'/' + records.field(u"Numero"_s).text();
        return texts.join(u'\n');
    }
    QString queriedSlowly(const std::function<bool(const QString &)> &meets) const
    {
        std::vector<std::pair<QString, size_t>> rows;
        for (size_t row = 0; row < m_texts.size(); ++row) {
            if (m_texts[row] && meets(*m_texts[row]))
                rows.emplace_back(*m_texts[row], row);
        }
        std::stable_sort(rows.begin(), rows.end(), [](const auto &left, const auto &right) {
            return CompareSlowly(left.first, right.first) < 0;
        });
        QStringList texts;
        for (const auto &[text, row] : rows)
            texts += text + u'/' + QString::number(row);
        return texts.join(u'\n');
    }

private:
    static Database make(const QString &path)
    {
        Database::create(path, u""_s).close();
        Database database = Database::open(path);
        TableDef table(u"Prova"_s);
        table.appendField(u"Numero"_s, FieldType::Long);
        table.appendField(u"Testo"_s, FieldType::Text, 50);
        table.field(u"Testo"_s).allowZeroLength = true;
        database.appendTableDef(table);
        return database;
    }

    Random &m_random;
    QTemporaryDir m_folder;
    Database m_database;
    RecordSet m_records;
    std::vector<std::optional<QString>> m_texts; ///< none for a deleted row
};

/** The criterion that finds what equals @p wanted, after trying it. */
QString requireFound(Table &table, const QString &wanted)
{
    QString equals = u"Testo = '"_s + RaddoppiaApici(wanted) + u'\'';
    RequireSame(equals, table.found(equals), table.foundSlowly([&wanted](const QString &text) {
        return CompareSlowly(text, wanted) == 0;
    }));
    return equals;
}

/** Rows enough for the indexes to grow, which they do while rows change. */
void growAndFind(Table &table, Random &random)
{
    for (int row = 12; row < 100; ++row) {
        table.add();
        if (random.chance(2))
            table.changeFirst(u"Numero = "_s + QString::number(random.below(row)));
        requireFound(table, table.anyText());
    }
}

} // namespace

void FuzzLike(Random &random)
{
    const QString pattern = randomPattern(random);
    const QString text = random.text(HostilePieces(), 5);
    const auto compiled = LikePattern::compile(pattern);
    const int result = compiled ? int(compiled->matches(text.toUtf8())) : -1;
    RequireSame(text + u" Like "_s + pattern, QString::number(result),
                QString::number(MatchSlowly(pattern, text)));
}

void FuzzCriterion(Random &random)
{
    static const QStringList fields = {u"Npag"_s, u"[due parole]"_s, u"Voce"_s, u"_x9"_s,
                                       u"è"_s,    u"9x"_s,           u"[]"_s,   u"[a"_s,
                                       u""_s,     u"Like"_s};
    static const QStringList operators = {u"="_s, u"Like"_s, u"LIKE"_s, u"=="_s, u"<"_s, u"li"_s};
    static const QStringList blanks = {QString(), u" "_s, u"  "_s, u"\t"_s, u"\r\n"_s};
    static const QStringList literals = {
        u"12"_s, u"-7"_s,  u"+0"_s,  u"9223372036854775807"_s, u"9223372036854775808"_s, u"1.5"_s,
        u"x"_s,  u"1 2"_s, QString()};
    static const QStringList quotes = {u"'"_s, u"''"_s, u"a"_s, u" "_s, u"]"_s, u"\n"_s, u"="_s};
    QString text;
    for (const QStringList *part : {&blanks, &fields, &blanks, &operators, &blanks})
        text += random.pick(*part);
    text += random.chance(2) ? random.pick(literals)
                             : u"'"_s + random.text(quotes, 5) + random.pick({u"'"_s, QString()});
    text += random.pick(blanks);
    RequireSame(text, shown(ParseCriterion(text)), shown(readSlowly(text)));
}

void FuzzFind(Random &random)
{
    Table table(random);
    for (int turn = 0; turn < 4; ++turn) {
        const QString wanted = random.text(HostilePieces(), 2);
        const QString equals = requireFound(table, wanted);
        const auto isEqual = [&wanted](const QString &text) {
            return CompareSlowly(text, wanted) == 0;
        };
        RequireSame(
            equals,
            table.queried(u"SELECT * FROM Prova WHERE "_s + equals + u" ORDER BY Testo, Numero"_s),
            table.queriedSlowly(isEqual));
        RequireSame(u"order of all"_s,
                    table.queried(u"SELECT * FROM Prova ORDER BY Testo, Numero"_s),
                    table.queriedSlowly([](const QString &) { return true; }));
        const QString pattern = randomPattern(random);
        if (MatchSlowly(pattern, QString()) >= 0) {
            const QString like = u"Testo Like '"_s + RaddoppiaApici(pattern) + u'\'';
            RequireSame(like, table.found(like), table.foundSlowly([&](const QString &text) {
                return MatchSlowly(pattern, text) == 1;
            }));
        }
        table.add();
        table.changeFirst(u"Numero = "_s + QString::number(random.below(10)));
    }
    if (random.chance(20))
        growAndFind(table, random);
}

/** A query is put together with what is to become of it, piece by piece. */
void FuzzSql(Random &random)
{
    static const QStringList marks = {
        u"'"_s,      u"''"_s, u"\""_s,   u"`"_s,        u"["_s, u"]"_s,    u"--"_s, u"/*"_s,
        u"*/"_s,     u";"_s,  u" "_s,    u"\n"_s,       u"("_s, u")"_s,    u","_s,  u"WHERE"_s,
        u"SELECT"_s, u"*"_s,  u"FROM"_s, u"ORDER BY"_s, u"a"_s, u"DESC"_s, u"è"_s,  u"="_s};
    const QString order = u" COLLATE "_s + QLatin1StringView(TextCollationName);
    QString sql;
    QString expected;
    const auto add = [&](const QString &text, bool ordered = false) {
        sql += text;
        expected += text + (ordered ? order : QString());
    };
    const auto addBlank = [&] {
        add(random.pick(
            {u" "_s, u"  "_s, u"\n"_s, u" /* '; WHERE \" */ "_s, u" -- ORDER BY '\n"_s}));
    };
    const auto addField = [&](bool ordered) {
        add(random.pick({u"Npag"_s, u"\"a \"\"'b\""_s, u"[x'y \"z]"_s, u"`w'`"_s}), ordered);
    };
    const QString table = random.pick({u"Fatture"_s, u"[due 'parole]"_s, u"\"x\"\"y\""_s});
    for (const QString &word : {u"SELECT"_s, u"*"_s, u"FROM"_s, table}) {
        add(word);
        addBlank();
    }
    if (random.chance(2)) {
        add(random.pick({u"WHERE"_s, u"where"_s}));
        for (bool more = true; more; more = random.chance(2)) {
            addBlank();
            addField(false);
            add(u"="_s);
            add(u'\'' + RaddoppiaApici(random.text(marks, 4)) + u'\'', true);
            addBlank();
            add(u"AND"_s);
        }
        add(u" 1"_s);
        addBlank();
    }
    if (random.chance(2)) {
        add(u"ORDER BY"_s);
        addBlank();
        addField(true);
        add(random.pick({QString(), u" DESC"_s, u" asc"_s}));
        add(u" ,"_s);
        addField(true);
        addBlank();
    }
    const EngineQuery query = EngineQueryFor(sql);
    RequireSame(sql, query.text, expected);
    if (query.singleTable.isEmpty() || !query.textWithRowId.contains(u"_rowid_, *"))
        Differ(sql, query.singleTable, table);

    const QString rubbish = random.text(marks, 14);
    RequireSame(rubbish, EngineQueryFor(rubbish).text.remove(order), rubbish);
}

} // namespace saldoro
