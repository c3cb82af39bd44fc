#include "common/amount_text.h"
#include "database/criterion.h"
#include "database/database.h"
#include "fuzzer.h"

#include <QHash>
#include <QTemporaryDir>

#include <algorithm>
#include <functional>
#include <map>
#include <optional>
#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** Pieces of text that are apt to trip comparisons, patterns and quoting; letters of these only are
 *  known to the references. */
const QStringList &hostilePieces()
{
    static const QStringList pieces = {u"a"_s,  u"A"_s,      u"b"_s, u"B"_s, u"e"_s, u"k"_s, u"z"_s,
                                       u"à"_s,  u"À"_s,      u"á"_s, u"è"_s, u"È"_s, u"é"_s, u"É"_s,
                                       u"ü"_s,  u"\u212A"_s, u"0"_s, u"7"_s, u"_"_s, u"%"_s, u"'"_s,
                                       u"\""_s, u"-"_s,      u"!"_s, u" "_s, u"."_s};
    return pieces;
}

/** What orders a text: its base letters without case, then its base letters with their accents. */
std::pair<QString, QString> sortKey(const QString &text)
{
    static const QHash<QChar, QString> accented = {{u'à', u"a\u0300"_s},
                                                   {u'á', u"a\u0301"_s},
                                                   {u'è', u"e\u0300"_s},
                                                   {u'é', u"e\u0301"_s},
                                                   {u'ü', u"u\u0308"_s}};
    std::pair<QString, QString> key;
    for (const QChar character : text) {
        const QString letter = accented.value(character.toLower(), character.toLower());
        key.first += letter.front();
        key.second += letter;
    }
    return key;
}

/** Whether "[list]" takes in @p character; no value when a range runs backwards. */
std::optional<bool> listTakes(QStringView list, QChar character)
{
    const bool isNegated = list.size() > 1 && list.startsWith(u'!');
    bool found = false;
    for (qsizetype place = isNegated ? 1 : 0; place < list.size(); ++place) {
        const bool isRange = place + 2 < list.size() && list[place + 1] == u'-';
        const QChar last = list[isRange ? place + 2 : place];
        if (list[place] > last)
            return std::nullopt;
        found = found || (list[place] <= character && character <= last);
        place += isRange ? 2 : 0;
    }
    return found != isNegated;
}

/** Like on texts in small letters; tries every way a run may stretch. */
bool matchesSlowly(QStringView pattern, QStringView text)
{
    if (pattern.isEmpty())
        return text.isEmpty();
    const QChar first = pattern.front();
    if (first == u'*')
        return matchesSlowly(pattern.sliced(1), text) ||
               (!text.isEmpty() && matchesSlowly(pattern, text.sliced(1)));
    const qsizetype end = first == u'[' ? pattern.indexOf(u']') : -1;
    if (end == 1) // an empty list stands for no character
        return matchesSlowly(pattern.sliced(2), text);
    if (text.isEmpty())
        return false;
    const QChar next = text.front();
    if (end > 1) {
        if (const auto isTaken = listTakes(pattern.sliced(1, end - 1), next))
            return *isTaken && matchesSlowly(pattern.sliced(end + 1), text.sliced(1));
    }
    const bool isDigit = next >= u'0' && next <= u'9';
    const bool fits = first == u'#' ? isDigit : first == u'?' || first == next;
    return fits && matchesSlowly(pattern.sliced(1), text.sliced(1));
}

bool isLike(const QString &text, const QString &pattern)
{
    return matchesSlowly(pattern.toLower(), text.toLower());
}

QString randomPattern(Random &random)
{
    static const QStringList special = {u"*"_s,     u"?"_s,     u"#"_s,  u"[a-e]"_s, u"[!a]"_s,
                                        u"[è-é]"_s, u"[0-9]"_s, u"[]"_s, u"[a-a]"_s, u"[-a]"_s,
                                        u"[a-]"_s,  u"["_s,     u"]"_s,  u"[z-a]"_s, u"[*?#]"_s,
                                        u"[à]"_s,   u"[A-Zé]"_s};
    QString pattern;
    for (int left = random.below(7); left > 0; --left)
        pattern += random.chance(2) ? random.pick(special) : random.pick(hostilePieces());
    return pattern;
}

/** A table of texts beside a plain list of the same. */
class Table
{
public:
    explicit Table(Random &random)
        : m_random(random)
        , m_database(make(m_folder.path() + u"\\prova.mdb"_s))
        , m_records(open(u"SELECT * FROM Prova ORDER BY Numero"_s))
    {
        for (int row = 0; row < 12; ++row)
            add();
        if (m_random.chance(2))
            m_records = open(u"SELECT * FROM Prova ORDER BY Numero"_s); // not yet written to
    }

    void add()
    {
        const auto number = static_cast<qint32>(m_added++);
        m_records.addNew();
        m_records.set(u"Numero"_s, number);
        m_records.set(u"Testo"_s, m_texts[number] = m_random.text(hostilePieces(), 2));
        m_records.update();
    }

    void changeFirst(const QString &criterion)
    {
        m_records.findFirst(criterion);
        if (m_records.noMatch())
            return;
        const qint32 number = m_records.field(u"Numero"_s).integer();
        if (m_random.chance(2)) {
            m_records.deleteRecord();
            m_texts.erase(number);
            return;
        }
        m_records.edit();
        m_records.set(u"Testo"_s, m_texts[number] = m_random.text(hostilePieces(), 2) + u'z');
        m_records.update();
    }

    /** What one of the rows holds; nothing when it is deleted. */
    QString anyText()
    {
        const auto row = m_texts.find(m_random.below(m_added));
        return row == m_texts.end() ? QString() : row->second;
    }

    using Meets = std::function<bool(const QString &)>;

    /** Finds all that meet the criterion, then opens a query with it. */
    void requireFound(const QString &criterion, const Meets &meets)
    {
        QStringList found;
        for (m_records.findFirst(criterion); !m_records.noMatch(); m_records.findNext(criterion))
            found += m_records.field(u"Numero"_s).text();
        QStringList wanted;
        for (const auto &[number, text] : m_texts) {
            if (meets(text))
                wanted += QString::number(number);
        }
        RequireSame(criterion, found.join(u' '), wanted.join(u' '));
    }

    void requireQueried(const QString &condition, const Meets &meets)
    {
        const QString sql =
            u"SELECT * FROM Prova "_s + condition + u"ORDER BY Testo, Numero DESC"_s;
        QStringList found;
        for (RecordSet records = open(sql); !records.eof(); records.moveNext())
            found += records.field(u"Testo"_s).text() + u'/' + records.field(u"Numero"_s).text();
        std::multimap<std::pair<std::pair<QString, QString>, qint32>, QString> sorted;
        for (const auto &[number, text] : m_texts) {
            if (meets(text))
                sorted.emplace(std::pair(sortKey(text), -number),
                               text + u'/' + QString::number(number));
        }
        QStringList wanted;
        for (const auto &[key, row] : sorted)
            wanted += row;
        RequireSame(sql, found.join(u'\n'), wanted.join(u'\n'));
    }

private:
    static Database make(const QString &path)
    {
        Database database = Database::create(path, u""_s);
        TableDef table(u"Prova"_s);
        table.appendField(u"Numero"_s, FieldType::Long);
        table.appendField(u"Testo"_s, FieldType::Text, 50);
        table.field(u"Testo"_s).allowZeroLength = true;
        database.appendTableDef(table);
        return database;
    }
    RecordSet open(const QString &sql) const { return m_database.openRecordSet(sql); }

    Random &m_random;
    QTemporaryDir m_folder;
    Database m_database;
    RecordSet m_records;
    int m_added = 0;
    std::map<qint32, QString> m_texts;
};

} // namespace

void FuzzLike(Random &random)
{
    const QString pattern = randomPattern(random);
    const QString text = random.text(hostilePieces(), 5);
    RequireSame(text + u" Like "_s + pattern, QString::number(LikePattern(pattern).matches(text)),
                QString::number(isLike(text, pattern)));
}

void FuzzFind(Random &random)
{
    Table table(random);
    for (int round = 0; round < 6; ++round) {
        const QString wanted = random.chance(2) ? table.anyText() : random.text(hostilePieces(), 2);
        const QString equals = u"Testo = '"_s + RaddoppiaApici(wanted) + u'\'';
        const auto isEqual = [key = sortKey(wanted)](const QString &text) {
            return sortKey(text) == key;
        };
        table.requireFound(equals, isEqual);
        table.requireQueried(u"WHERE "_s + equals + u' ', isEqual);
        table.requireQueried({}, [](const QString &) { return true; });
        const QString pattern = randomPattern(random);
        table.requireFound(u"Testo Like '"_s + RaddoppiaApici(pattern) + u'\'',
                           [&pattern](const QString &text) { return isLike(text, pattern); });
        if (random.chance(3))
            table.add();
        table.changeFirst(random.chance(2) ? equals
                                           : u"Numero = "_s + QString::number(random.below(12)));
    }
}

} // namespace saldoro
