#include "database/sql_text.h"

#include <QHash>
#include <QStringView>

#include <vector>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

enum class TokenKind
{
    Blank, ///< blanks and comments
    Word,  ///< keywords, plain names and numbers
    QuotedName,
    TextLiteral,
    Symbol
};

struct Token
{
    TokenKind kind;
    QStringView text;

    bool isWord(QStringView word) const
    {
        return kind == TokenKind::Word && text.compare(word, Qt::CaseInsensitive) == 0;
    }
    bool isSymbol(QChar symbol) const { return kind == TokenKind::Symbol && text == symbol; }
};

/** Position after the quoted part at @p start; a doubled closing mark is part of it. */
qsizetype quotedEnd(QStringView sql, qsizetype start, QChar close)
{
    for (qsizetype place = start + 1; place < sql.size(); ++place) {
        if (sql[place] != close)
            continue;
        const bool doubled = close != u']' && place + 1 < sql.size() && sql[place + 1] == close;
        if (!doubled)
            return place + 1;
        ++place;
    }
    return sql.size();
}

/** Position after the comment at @p start, or @p start when there is none. */
qsizetype commentEnd(QStringView sql, qsizetype start)
{
    const QStringView rest = sql.sliced(start);
    const QStringView close = rest.startsWith(u"--") ? u"\n" : u"*/";
    if (!rest.startsWith(u"--") && !rest.startsWith(u"/*"))
        return start;
    const qsizetype end = rest.indexOf(close, 2);
    return end < 0 ? sql.size() : start + end + close.size();
}

bool isWordCharacter(QChar character)
{
    return character.isLetterOrNumber() || character == u'_' || character.unicode() > 0x7F;
}

Token tokenAt(QStringView sql, qsizetype start)
{
    const QChar first = sql[start];
    const auto token = [&](TokenKind kind, qsizetype end) {
        return Token{kind, sql.sliced(start, end - start)};
    };
    if (first == u'\'')
        return token(TokenKind::TextLiteral, quotedEnd(sql, start, first));
    if (first == u'"' || first == u'`')
        return token(TokenKind::QuotedName, quotedEnd(sql, start, first));
    if (first == u'[')
        return token(TokenKind::QuotedName, quotedEnd(sql, start, u']'));
    if (const qsizetype end = commentEnd(sql, start); end > start)
        return token(TokenKind::Blank, end);
    qsizetype end = start;
    while (end < sql.size() && sql[end].isSpace())
        ++end;
    if (end > start)
        return token(TokenKind::Blank, end);
    while (end < sql.size() && isWordCharacter(sql[end]))
        ++end;
    return end > start ? token(TokenKind::Word, end) : token(TokenKind::Symbol, start + 1);
}

std::vector<Token> tokensOf(QStringView sql)
{
    std::vector<Token> tokens;
    for (qsizetype place = 0; place < sql.size(); place += tokens.back().text.size())
        tokens.push_back(tokenAt(sql, place));
    return tokens;
}

/** Copies a query token by token and names the order of texts where it has to hold. */
class CollationWriter
{
public:
    QString write(const std::vector<Token> &tokens)
    {
        for (const Token &token : tokens) {
            if (token.kind == TokenKind::Blank) {
                m_result += token.text;
                continue;
            }
            enter(token);
            m_result += token.text;
            m_lastEnd = m_result.size();
            if (token.kind == TokenKind::TextLiteral && m_clauses.back() == Clause::Condition)
                appendCollation(m_lastEnd);
        }
        endSortTerm();
        return m_result;
    }

private:
    enum class Clause
    {
        Other,
        Condition,
        SortTerm,     ///< ORDER BY, within the expression of a term
        SortTermEnded ///< ORDER BY, behind that expression
    };

    void enter(const Token &token)
    {
        if (token.isSymbol(u'(')) {
            const bool inCondition = m_clauses.back() == Clause::Condition;
            m_clauses.push_back(inCondition ? Clause::Condition : Clause::Other);
        } else if (token.isSymbol(u')')) {
            endSortTerm();
            if (m_clauses.size() > 1)
                m_clauses.pop_back();
        } else if (token.isSymbol(u',')) {
            const bool isSorting = endSortTerm() || m_clauses.back() == Clause::SortTermEnded;
            if (isSorting)
                m_clauses.back() = Clause::SortTerm;
        } else if (token.isSymbol(u';')) {
            endSortTerm();
        } else if (token.kind == TokenKind::Word) {
            enterWord(token);
        }
    }

    void enterWord(const Token &token)
    {
        if (token.isWord(u"BY") && m_afterOrder) {
            m_clauses.back() = Clause::SortTerm;
        } else if (token.isWord(u"ASC") || token.isWord(u"DESC") || token.isWord(u"NULLS")) {
            endSortTerm();
        } else if (token.isWord(u"WHERE") || token.isWord(u"ON") || token.isWord(u"HAVING")) {
            m_clauses.back() = Clause::Condition;
        } else if (opensOtherClause(token)) {
            endSortTerm();
            m_clauses.back() = Clause::Other;
        }
        m_afterOrder = token.isWord(u"ORDER");
    }

    static bool opensOtherClause(const Token &token)
    {
        for (const QStringView word : {u"SELECT", u"FROM", u"GROUP", u"ORDER", u"LIMIT", u"UNION",
                                       u"INTERSECT", u"EXCEPT", u"JOIN"}) {
            if (token.isWord(word))
                return true;
        }
        return false;
    }

    /** Ends the term of ORDER BY that is being copied; false when there is none. */
    bool endSortTerm()
    {
        if (m_clauses.back() != Clause::SortTerm)
            return false;
        m_clauses.back() = Clause::SortTermEnded;
        appendCollation(m_lastEnd);
        return true;
    }

    void appendCollation(qsizetype place)
    {
        m_result.insert(place, u" COLLATE "_s + QLatin1StringView(TextCollationName));
    }

    QString m_result;
    qsizetype m_lastEnd = 0; ///< behind the last token that is no blank
    std::vector<Clause> m_clauses{Clause::Other};
    bool m_afterOrder = false;
};

QString unquoted(const Token &token)
{
    if (token.kind == TokenKind::Word)
        return token.text.toString();
    const QString inner =
        token.text.sliced(1, std::max<qsizetype>(token.text.size() - 2, 0)).toString();
    const QChar mark = token.text.front();
    return mark == u'[' ? inner : QString(inner).replace(QString(2, mark), QString(mark));
}

/** The name in "SELECT * FROM name", when nothing but a condition, an order or the end follows. */
QString singleTableOf(const std::vector<Token> &all)
{
    std::vector<Token> tokens;
    for (const Token &token : all) {
        if (token.kind != TokenKind::Blank)
            tokens.push_back(token);
    }
    if (tokens.size() < 4 || !tokens[0].isWord(u"SELECT") || !tokens[1].isSymbol(u'*') ||
        !tokens[2].isWord(u"FROM"))
        return {};
    const bool isName =
        tokens[3].kind == TokenKind::Word || tokens[3].kind == TokenKind::QuotedName;
    const bool endsThere = tokens.size() == 4 || tokens[4].isWord(u"WHERE") ||
                           tokens[4].isWord(u"ORDER") || tokens[4].isSymbol(u';');
    for (const Token &token : tokens) {
        if (token.isWord(u"UNION") || token.isWord(u"INTERSECT") || token.isWord(u"EXCEPT") ||
            token.isWord(u"GROUP"))
            return {};
    }
    return isName && endsThere ? unquoted(tokens[3]) : QString();
}

} // namespace

EngineQuery EngineQueryFor(const QString &sql)
{
    std::vector<Token> tokens = tokensOf(sql);
    EngineQuery query;
    query.text = CollationWriter().write(tokens);
    query.singleTable = singleTableOf(tokens);
    if (query.singleTable.isEmpty())
        return query;
    const QString columns = QString(RowIdName) + u", *"_s;
    for (Token &token : tokens) {
        if (token.isSymbol(u'*')) {
            token.text = columns;
            break;
        }
    }
    query.textWithRowId = CollationWriter().write(tokens);
    return query;
}

QString QuotedName(const QString &name)
{
    return u'"' + QString(name).replace(u'"', u"\"\""_s) + u'"';
}

} // namespace saldoro
