#include "common/amount_text.h"
#include "database/database.h"
#include "fuzzer.h"

#include <QHash>
#include <QTemporaryDir>

#include <map>
#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** A text of letters and marks that are apt to trip comparisons and quoting; the reference knows
 *  these letters only. */
QString hostileText(Random &random)
{
    static const QStringList pieces = {u"a"_s,  u"A"_s,      u"b"_s, u"B"_s, u"e"_s, u"k"_s, u"z"_s,
                                       u"à"_s,  u"À"_s,      u"á"_s, u"è"_s, u"È"_s, u"é"_s, u"É"_s,
                                       u"ü"_s,  u"\u212A"_s, u"0"_s, u"7"_s, u"_"_s, u"%"_s, u"'"_s,
                                       u"''"_s, u"\""_s,     u"-"_s, u"!"_s, u" "_s, u"."_s};
    return random.text(pieces, 2);
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

Database makeTable(const QString &folder)
{
    Database database = Database::create(folder + u"/prova.mdb"_s, {});
    TableDef table(u"Prova"_s);
    table.appendField(u"Numero"_s, FieldType::Long);
    table.appendField(u"Testo"_s, FieldType::Text, 50);
    table.field(u"Testo"_s).allowZeroLength = true;
    database.appendTableDef(table);
    return database;
}

QString numbersFound(RecordSet &records, const QString &criterion)
{
    QStringList numbers;
    for (records.findFirst(criterion); !records.noMatch(); records.findNext(criterion))
        numbers += records.field(u"Numero"_s).text();
    return numbers.join(u' ');
}

QString numbersIn(RecordSet records)
{
    QStringList numbers;
    for (; !records.eof(); records.moveNext())
        numbers += records.field(u"Numero"_s).text();
    return numbers.join(u' ');
}

} // namespace

/** A set that was written to, one that was not and a query are to find the same records. */
void FuzzFind(Random &random)
{
    const QTemporaryDir folder;
    const Database database = makeTable(folder.path());
    RecordSet written = database.openRecordSet(u"SELECT * FROM Prova"_s);
    QStringList texts;
    for (int number = 0; number < 12; ++number) {
        texts += hostileText(random);
        written.addNew();
        written.set(u"Numero"_s, number);
        written.set(u"Testo"_s, texts.last());
        written.update();
    }
    RecordSet opened = database.openRecordSet(u"SELECT * FROM Prova"_s);
    for (const QString &wanted : texts + QStringList{hostileText(random)}) {
        QStringList numbers;
        for (int number = 0; number < texts.size(); ++number) {
            if (sortKey(texts[number]) == sortKey(wanted))
                numbers += QString::number(number);
        }
        const QString equals = u"Testo = '"_s + RaddoppiaApici(wanted) + u'\'';
        RequireSame(equals, numbersFound(written, equals), numbers.join(u' '));
        RequireSame(equals, numbersFound(opened, equals), numbers.join(u' '));
        RequireSame(equals,
                    numbersIn(database.openRecordSet(u"SELECT * FROM Prova WHERE "_s + equals +
                                                     u"  ORDER BY Numero"_s)),
                    numbers.join(u' '));
    }
    std::multimap<std::pair<QString, QString>, QString> sorted;
    for (int number = 0; number < texts.size(); ++number)
        sorted.emplace(sortKey(texts[number]), QString::number(number));
    QStringList numbers;
    for (const auto &[key, number] : sorted)
        numbers += number;
    RequireSame(texts.join(u'|'),
                numbersIn(database.openRecordSet(u"SELECT * FROM Prova ORDER BY Testo, Numero "_s)),
                numbers.join(u' '));
}

} // namespace saldoro
