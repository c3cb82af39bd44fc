#include "platform/criterion.h"
#include "platform/like_pattern.h"
#include "platform/sql_text.h"
#include "platform/text_collation.h"

#include <QTest>

using namespace saldoro;
using namespace Qt::StringLiterals;

class TextRulesTest : public QObject
{
    Q_OBJECT

private slots:
    void likePatterns_data()
    {
        QTest::addColumn<QString>("pattern");
        QTest::addColumn<QStringList>("met");
        QTest::addColumn<QStringList>("missed");
        const auto row = [](const char *name, const QString &pattern, const QStringList &met,
                            const QStringList &missed) {
            QTest::newRow(name) << pattern << met << missed;
        };
        row("exact key", u"M_4"_s, {u"M_4"_s, u"m_4"_s}, {u"MX4"_s, u"M_41"_s, u"M_"_s, {}});
        row("percent is plain", u"5%"_s, {u"5%"_s}, {u"50"_s, u"5"_s});
        row("empty", {}, {{}}, {u"a"_s});
        row("any run", u"*"_s, {{}, u"a"_s, u"due\nrighe"_s}, {});
        row("prefix", u"Ross*"_s, {u"Ross"_s, u"ROSSI Mario"_s}, {u"Ros"_s, u"i Rossi"_s});
        row("runs", u"a*b*c"_s, {u"abc"_s, u"aXbYbZc"_s, u"abbcc"_s}, {u"acb"_s, u"abcd"_s});
        row("one", u"a?c"_s, {u"abc"_s, u"aàc"_s, u"a😀c"_s}, {u"ac"_s, u"abbc"_s});
        row("digit", u"n#"_s, {u"n0"_s, u"N9"_s}, {u"nx"_s, u"n"_s, u"n10"_s, u"n٣"_s});
        row("list", u"[abc]1"_s, {u"a1"_s, u"C1"_s}, {u"d1"_s, u"1"_s});
        row("ranges", u"[a-cx-z]"_s, {u"B"_s, u"y"_s, u"à"_s}, {u"d"_s, u"-"_s, u"è"_s});
        row("negated", u"[!a-c]"_s, {u"d"_s, u"!"_s}, {u"A"_s, {}});
        row("marks in a list", u"[*?#[]"_s, {u"*"_s, u"?"_s, u"#"_s, u"["_s}, {u"a"_s, u"]"_s});
        row("hyphen at an end", u"[a-]"_s, {u"a"_s, u"-"_s}, {u"b"_s});
        row("only the mark", u"[!]"_s, {u"!"_s}, {u"a"_s});
        row("empty list", u"a[]b"_s, {u"ab"_s}, {u"a[]b"_s});
        row("closing alone", u"a]"_s, {u"A]"_s}, {u"a"_s});
        row("accents differ", u"città*"_s, {u"CITTÀ"_s, u"città di"_s}, {u"citta"_s});
        row("accent set apart", u"e\u0300"_s, {u"è"_s, u"È"_s}, {u"e"_s});
    }

    void likePatterns()
    {
        QFETCH(QString, pattern);
        QFETCH(QStringList, met);
        QFETCH(QStringList, missed);
        const auto compiled = LikePattern::compile(pattern);
        QVERIFY(compiled.has_value());
        for (const QString &text : met)
            QVERIFY2(compiled->matches(text.toUtf8()), qPrintable(text));
        for (const QString &text : missed)
            QVERIFY2(!compiled->matches(text.toUtf8()), qPrintable(text));
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

    void criteria_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("read"); // field, operator and literal; empty when refused
        const auto row = [](const QString &text, const QString &read) {
            QTest::newRow(qPrintable(text)) << text << read;
        };
        row(u"Npag =3"_s, u"Npag = 3"_s);
        row(u"  Npag= -3 "_s, u"Npag = -3"_s);
        row(u"RelNpag = +9223372036854775807"_s, u"RelNpag = 9223372036854775807"_s);
        row(u"Cod = ''"_s, u"Cod = ''"_s);
        row(u"Cod='l''altro'''"_s, u"Cod = 'l'altro''"_s);
        row(u"nominativo Like 'D''A*'"_s, u"nominativo Like 'D'A*'"_s);
        row(u"Voce LIKE'x'"_s, u"Voce Like 'x'"_s);
        row(u"[Nome lungo] = 1"_s, u"Nome lungo = 1"_s);
        for (const char *refused :
             {"", "Npag", "Npag =", "= 3", "Npag = 3 x", "Npag = 1.5", "Npag = - 3", "Npag == 3",
              "Npag = 9223372036854775808", "Cod = 'l'altro'", "Cod = 'x", "Cod = x", "Cod = '",
              "VoceLike 'x'", "Voce Like 3", "Cod = 'a' OR 1=1", "3 = 3", "[] = 3", "Cod <> 'a'"})
            row(QString::fromLatin1(refused), {});
    }

    void criteria()
    {
        QFETCH(QString, text);
        QString read;
        if (const auto criterion = ParseCriterion(text)) {
            const auto *number = std::get_if<qint64>(&criterion->literal);
            const bool isLike = criterion->comparison == Criterion::Operator::Like;
            read = criterion->field + (isLike ? u" Like "_s : u" = "_s) +
                   (number ? QString::number(*number)
                           : u'\'' + std::get<QString>(criterion->literal) + u'\'');
        }
        QTEST(read, "read");
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

    void queriesNameTheOrderOfTexts_data()
    {
        QTest::addColumn<QString>("sql");
        QTest::addColumn<QString>("text"); // "§" stands for the named order
        QTest::addColumn<QString>("table");
        QTest::newRow("plain") << u"SELECT * FROM Fatture "_s << u"SELECT * FROM Fatture "_s
                               << u"Fatture"_s;
        QTest::newRow("condition and order")
            << u"select *  from [Fatture]  WHERE AziProf = 'A' ORDER BY Npag "_s
            << u"select *  from [Fatture]  WHERE AziProf = 'A'§ ORDER BY Npag§ "_s << u"Fatture"_s;
        QTest::newRow("directions")
            << u"SELECT * FROM T ORDER\nBY a DESC, f(b, 'x') , c NULLS LAST;"_s
            << u"SELECT * FROM T ORDER\nBY a§ DESC, f(b, 'x')§ , c§ NULLS LAST;"_s << u"T"_s;
        QTest::newRow("join")
            << u"SELECT A.x, 'y' FROM A INNER JOIN B ON A.k = 'a' ORDER BY A.n"_s
            << u"SELECT A.x, 'y' FROM A INNER JOIN B ON A.k = 'a'§ ORDER BY A.n§"_s << QString();
        QTest::newRow("words in quotes")
            << u"SELECT * FROM T WHERE x = ' ORDER BY it''s ' -- ORDER BY 'z'"_s
            << u"SELECT * FROM T WHERE x = ' ORDER BY it''s '§ -- ORDER BY 'z'"_s << u"T"_s;
        QTest::newRow("inner query")
            << u"SELECT * FROM T WHERE k = (SELECT n FROM U WHERE v = 'q' ORDER BY w LIMIT 1)"_s
            << u"SELECT * FROM T WHERE k = (SELECT n FROM U WHERE v = 'q'§ ORDER BY w§ LIMIT 1)"_s
            << u"T"_s;
        QTest::newRow("alias") << u"SELECT * FROM T t"_s << u"SELECT * FROM T t"_s << QString();
        QTest::newRow("union") << u"SELECT * FROM T WHERE a = 1 UNION SELECT * FROM U"_s
                               << u"SELECT * FROM T WHERE a = 1 UNION SELECT * FROM U"_s
                               << QString();
        QTest::newRow("two tables")
            << u"SELECT * FROM T, U"_s << u"SELECT * FROM T, U"_s << QString();
        QTest::newRow("open quote") << u"SELECT 'x"_s << u"SELECT 'x"_s << QString();
    }

    void queriesNameTheOrderOfTexts()
    {
        QFETCH(QString, sql);
        QFETCH(QString, text);
        const EngineQuery query = EngineQueryFor(sql);
        QCOMPARE(query.text, text.replace(u"§"_s, u" COLLATE SALDORO"_s));
        QTEST(query.singleTable, "table");
    }
};

QTEST_GUILESS_MAIN(TextRulesTest)
#include "test_text_rules.moc"
