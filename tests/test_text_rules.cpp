#include "database/criterion.h"
#include "database/like_pattern.h"
#include "database/sql_text.h"
#include "database/text_collation.h"

#include <QTest>

using namespace saldoro;
using namespace Qt::StringLiterals;

class TextRulesTest : public QObject
{
    Q_OBJECT

private slots:
    void likePatterns()
    {
        // pattern, texts that meet it, texts that do not
        const QList<std::tuple<QString, QStringList, QStringList>> patterns{
            {u"M_4"_s, {u"M_4"_s, u"m_4"_s}, {u"MX4"_s, u"M_41"_s, u"M_"_s, {}}},
            {u"5%"_s, {u"5%"_s}, {u"50"_s, u"5"_s}},
            {{}, {{}}, {u"a"_s}},
            {u"*"_s, {{}, u"a"_s, u"due\nrighe"_s}, {}},
            {u"Ross*"_s, {u"Ross"_s, u"ROSSI Mario"_s}, {u"Ros"_s, u"i Rossi"_s}},
            {u"a*b*c"_s, {u"abc"_s, u"aXbYbZc"_s, u"abbcc"_s}, {u"acb"_s, u"abcd"_s}},
            {u"a[]b"_s, {u"ab"_s}, {u"a[]b"_s}},
            {u"a?c"_s, {u"abc"_s, u"aàc"_s, u"a😀c"_s}, {u"ac"_s, u"abbc"_s}},
            {u"n#"_s, {u"n0"_s, u"N9"_s}, {u"nx"_s, u"n"_s, u"n10"_s, u"n٣"_s}},
            {u"[abc]1"_s, {u"a1"_s, u"C1"_s}, {u"d1"_s, u"1"_s}},
            {u"[a-cx-z]"_s, {u"B"_s, u"y"_s, u"à"_s}, {u"d"_s, u"-"_s, u"è"_s}},
            {u"[!a-c]"_s, {u"d"_s, u"!"_s}, {u"A"_s, {}}},
            {u"[*?#[]"_s, {u"*"_s, u"?"_s, u"#"_s, u"["_s}, {u"a"_s, u"]"_s}},
            {u"[a-]"_s, {u"a"_s, u"-"_s}, {u"b"_s}},
            {u"[!]"_s, {u"!"_s}, {u"a"_s}},
            {u"città*"_s, {u"CITTÀ"_s, u"città di"_s}, {u"citta"_s}},
            {u"e\u0300"_s, {u"è"_s, u"È"_s}, {u"e"_s}}};
        for (const auto &[pattern, met, missed] : patterns) {
            const auto compiled = LikePattern::compile(pattern);
            QVERIFY2(compiled, qPrintable(pattern));
            for (const QString &text : met)
                QVERIFY2(compiled->matches(text.toUtf8()), qPrintable(pattern + u' ' + text));
            for (const QString &text : missed)
                QVERIFY2(!compiled->matches(text.toUtf8()), qPrintable(pattern + u' ' + text));
        }
    }

    void patternsThatCannotBeRead()
    {
        for (const QString &pattern : {u"[a"_s, u"a[!"_s, u"["_s, u"[z-a]"_s})
            QVERIFY2(!LikePattern::compile(pattern), qPrintable(pattern));
    }

    void manyRunsStayCheap()
    {
        const auto pattern = LikePattern::compile(u"*a"_s.repeated(40) + u"*b"_s);
        QVERIFY(!pattern->matches(QByteArray(20'000, 'a'))); // would never end if it backtracked
    }

    void criteria()
    {
        const QList<QPair<QString, QString>> criteria{
            {u"  Npag= -3 "_s, u"Npag = -3"_s},
            {u"RelNpag = +9223372036854775807"_s, u"RelNpag = 9223372036854775807"_s},
            {u"Cod='l''altro'''"_s, u"Cod = 'l'altro''"_s},
            {u"nominativo Like 'D''A*'"_s, u"nominativo Like 'D'A*'"_s},
            {u"[Nome lungo] = 1"_s, u"Nome lungo = 1"_s}};
        for (const auto &[text, wanted] : criteria) {
            const auto criterion = ParseCriterion(text);
            QVERIFY2(criterion, qPrintable(text));
            const auto *number = std::get_if<qint64>(&criterion->literal);
            const bool isLike = criterion->comparison == Criterion::Operator::Like;
            QCOMPARE(criterion->field + (isLike ? u" Like "_s : u" = "_s) +
                         (number ? QString::number(*number)
                                 : u'\'' + std::get<QString>(criterion->literal) + u'\''),
                     wanted);
        }
        for (const char *refused :
             {"", "Npag", "Npag =", "= 3", "Npag = 3 x", "Npag = 1.5", "Npag = - 3", "Npag == 3",
              "Npag = 9223372036854775808", "Cod = 'l'altro'", "Cod = 'x", "Cod = x", "Cod = '",
              "VoceLike 'x'", "Voce Like 3", "Cod = 'a' OR 1=1", "3 = 3", "[] = 3", "Cod <> 'a'"})
            QVERIFY2(!ParseCriterion(QString::fromLatin1(refused)), refused);
    }

    void textsAreOrderedByBaseLetterThenAccent()
    {
        const QStringList ordered{{},      u"1"_s,  u"a"_s,     u"à"_s,     u"aa"_s,
                                  u"àa"_s, u"AB"_s, u"citta"_s, u"città"_s, u"cittab"_s,
                                  u"E"_s,  u"è"_s,  u"é"_s,     u"f"_s,     u"z"_s};
        for (qsizetype left = 0; left < ordered.size(); ++left) {
            for (qsizetype right = 0; right < ordered.size(); ++right) {
                const int result = CompareText(ordered[left].toUtf8(), ordered[right].toUtf8());
                QVERIFY2((result > 0) - (result < 0) == (left > right) - (left < right),
                         qPrintable(ordered[left] + u" / "_s + ordered[right]));
            }
        }
    }

    void textsThatAreEqual()
    {
        const QList<QPair<QString, QString>> pairs{{u"CITTÀ"_s, u"città"_s},
                                                   {u"e\u0300"_s, u"È"_s},
                                                   {u"\u212Aelvin"_s, u"kelvin"_s},
                                                   {u"Ω"_s, u"ω"_s}};
        for (const auto &[left, right] : pairs) {
            QCOMPARE(CompareText(left.toUtf8(), right.toUtf8()), 0);
            QCOMPARE(HashText(left.toUtf8()), HashText(right.toUtf8()));
        }
        QVERIFY(CompareText({"a\0b", 3}, {"a\0c", 3}) < 0); // a text may hold the zero character
    }

    void queriesNameTheOrderOfTexts()
    {
        // query, the same with "§" for the named order, its only table
        const QList<std::tuple<QString, QString, QString>> queries{
            {u"select *  from [Fatture]  WHERE AziProf = 'A' ORDER BY Npag "_s,
             u"select *  from [Fatture]  WHERE AziProf = 'A'§ ORDER BY Npag§ "_s, u"Fatture"_s},
            {u"SELECT * FROM T ORDER\nBY a DESC, f(b, 'x') , c NULLS LAST;"_s,
             u"SELECT * FROM T ORDER\nBY a§ DESC, f(b, 'x')§ , c§ NULLS LAST;"_s, u"T"_s},
            {u"SELECT * FROM T WHERE x = ' ORDER BY it''s ' -- ORDER BY 'z'"_s,
             u"SELECT * FROM T WHERE x = ' ORDER BY it''s '§ -- ORDER BY 'z'"_s, u"T"_s},
            {u"SELECT * FROM T WHERE k = (SELECT n FROM U WHERE v = 'q' ORDER BY w LIMIT 1)"_s,
             u"SELECT * FROM T WHERE k = (SELECT n FROM U WHERE v = 'q'§ ORDER BY w§ LIMIT 1)"_s,
             u"T"_s},
            {u"SELECT * FROM T WHERE a = 1 UNION SELECT * FROM U"_s,
             u"SELECT * FROM T WHERE a = 1 UNION SELECT * FROM U"_s, QString()},
            {u"SELECT 'x"_s, u"SELECT 'x"_s, QString()}};
        for (const auto &[sql, text, singleTable] : queries) {
            const EngineQuery query = EngineQueryFor(sql);
            QCOMPARE(query.text, QString(text).replace(u"§"_s, u" COLLATE SALDORO"_s));
            QCOMPARE(query.singleTable, singleTable);
        }
    }
};

QTEST_GUILESS_MAIN(TextRulesTest)
#include "test_text_rules.moc"
