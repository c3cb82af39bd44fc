#include "database/criterion.h"
#include "database/sql_text.h"
#include "database/text_order.h"

#include <QElapsedTimer>
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
            {u"a*b**c"_s, {u"abc"_s, u"aXbYbZc"_s, u"abbcc"_s}, {u"acb"_s, u"abcd"_s}},
            {u"a[]b"_s, {u"ab"_s}, {u"a[]b"_s}},
            {u"a?c"_s, {u"abc"_s, u"aàc"_s, u"a😀c"_s}, {u"ac"_s, u"abbc"_s}},
            {u"n#"_s, {u"n0"_s, u"N9"_s}, {u"nx"_s, u"n"_s, u"n10"_s, u"n٣"_s}},
            {u"[a-cx-z]1"_s, {u"B1"_s, u"y1"_s}, {u"d1"_s, u"-1"_s, u"1"_s}},
            {u"[!a-c]"_s, {u"d"_s, u"!"_s}, {u"A"_s, {}}},
            {u"[*?#[]"_s, {u"*"_s, u"?"_s, u"#"_s, u"["_s}, {u"a"_s, u"]"_s}},
            {u"[a-]"_s, {u"a"_s, u"-"_s}, {u"b"_s}},
            {u"[!]"_s, {u"!"_s}, {u"a"_s}},
            {u"a[*"_s, {u"a["_s, u"A[bc"_s}, {u"a"_s, u"ab"_s}},
            {u"[z-a]*"_s, {u"[z-a]"_s, u"[Z-A]x"_s}, {u"z"_s, u"b"_s}},
            {u"[z-a[x]?"_s, {u"[z-axy"_s}, {u"[z-a[x]y"_s}},
            {u"(.)\\d^$"_s, {u"(.)\\D^$"_s}, {u"(x)\\d^$"_s}},
            {u"città*"_s, {u"CITTÀ"_s, u"città di"_s}, {u"citta"_s}},
            {u"e\u0300"_s, {u"è"_s, u"È"_s}, {u"e"_s}}};
        for (const auto &[pattern, met, missed] : patterns) {
            for (const QString &text : met)
                QVERIFY2(LikePattern(pattern).matches(text), qPrintable(pattern + u' ' + text));
            for (const QString &text : missed)
                QVERIFY2(!LikePattern(pattern).matches(text), qPrintable(pattern + u' ' + text));
        }
    }

    /** With runs tried out in all their lengths each of these would take seconds. */
    void manyRunsStayCheap()
    {
        const QString text(20'000, u'a');
        const QString runs = u"*a?*"_s.repeated(40);
        QElapsedTimer timer;
        timer.start();
        QVERIFY(LikePattern(runs).matches(text));
        for (const QString &end : {u"*b"_s, u"b*"_s, u"*[!a]*?"_s, u"*b*"_s, u"*[b-z]"_s, u"*#"_s})
            QVERIFY(!LikePattern(runs + end).matches(text));
        QVERIFY(timer.elapsed() < 1000);
    }

    void criteria()
    {
        QCOMPARE(RaddoppiaApici(u"l''Aia"_s), u"l''''Aia"_s);
        const QList<QPair<QString, QString>> criteria{
            {u"  Npag= -3 "_s, u"Npag = -3"_s},
            {u"RelNpag = +9223372036854775807"_s, u"RelNpag = 9223372036854775807"_s},
            {u"Cod='l''altro'''"_s, u"Cod = 'l'altro''"_s},
            {u"nominativo\nlIKE 'D''A*'"_s, u"nominativo Like"_s},
            {u"[Nome lungo] = 1"_s, u"Nome lungo = 1"_s},
            {u"Cod = '%1'"_s.arg(QString(100'000, u'x')),
             u"Cod = '%1'"_s.arg(QString(100'000, u'x'))}};
        for (const auto &[text, wanted] : criteria) {
            const auto criterion = ParseCriterion(text);
            QVERIFY2(criterion, qPrintable(text));
            const auto *number = std::get_if<qint64>(&criterion->wanted);
            const auto *literal = std::get_if<QByteArray>(&criterion->wanted);
            QCOMPARE(criterion->field + (number    ? u" = "_s + QString::number(*number)
                                         : literal ? u" = '"_s + QString::fromUtf8(*literal) + u'\''
                                                   : u" Like"_s),
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
        QVERIFY(CompareText({"a\0b", 3}, {"a\0c", 3}) < 0); // a text may hold the zero character
        for (const auto &[left, right] : {std::pair(u"CITTÀ"_s, u"città"_s),
                                          {u"e\u0300"_s, u"È"_s},
                                          {u"\u212Aelvin"_s, u"kelvin"_s}}) {
            QCOMPARE(CompareText(left.toUtf8(), right.toUtf8()), 0);
            QCOMPARE(ComparableText(left.toUtf8()), ComparableText(right.toUtf8()));
        }
    }

    void queriesNameOrderAndFile()
    {
        // query, the same with "§" for the named order and "@" for the file, its only table
        const QList<std::tuple<QString, QString, QString>> queries{
            {u"select *  from [Due nomi]  WHERE AziProf = 'A' ORDER BY Npag "_s,
             u"select *  from @[Due nomi]  WHERE AziProf = 'A'§ ORDER BY Npag§ "_s, u"Due nomi"_s},
            {u"SELECT * FROM T ORDER\nBY a DESC, U.b , [c d] asc;"_s,
             u"SELECT * FROM @T ORDER\nBY a§ DESC, U.b§ , [c d]§ asc;"_s, u"T"_s},
            {u"SELECT * FROM \"T\" WHERE x = ' FROM it''s ' AND y = ''"_s,
             u"SELECT * FROM @\"T\" WHERE x = ' FROM it''s '§ AND y = ''§"_s, u"T"_s},
            {u"SELECT * FROM T INNER JOIN U ON T.a = U.b ORDER BY T.a"_s,
             u"SELECT * FROM @T INNER JOIN @U ON T.a = U.b ORDER BY T.a§"_s, QString()},
            {u"SELECT 'x"_s, u"SELECT 'x"_s, QString()}};
        for (const auto &[sql, text, singleTable] : queries) {
            const EngineQuery query = EngineQueryFor(sql, u"f"_s);
            QCOMPARE(query.text,
                     QString(text).replace(u"§"_s, u" COLLATE SALDORO"_s).replace(u'@', u"f."_s));
            QCOMPARE(query.singleTable, singleTable);
        }
    }
};

QTEST_GUILESS_MAIN(TextRulesTest)
#include "test_text_rules.moc"
