#include "database/criterion.h"

#include <algorithm>

namespace saldoro {

namespace {

/** Takes a criterion apart from left to right; each step says whether it found its part. */
class CriterionReader
{
public:
    explicit CriterionReader(QStringView text)
        : m_rest(text.trimmed())
    {
    }

    bool takeField(QString &field)
    {
        if (m_rest.startsWith(u'[')) {
            const qsizetype end = m_rest.indexOf(u']');
            if (end < 2)
                return false;
            field = m_rest.sliced(1, end - 1).toString();
            drop(end + 1);
            return true;
        }
        const qsizetype length = wordLength();
        if (length == 0 || m_rest.front().isDigit())
            return false;
        field = m_rest.first(length).toString();
        drop(length);
        return true;
    }

    bool takeOperator(Criterion::Operator &comparison)
    {
        if (m_rest.startsWith(u'=')) {
            comparison = Criterion::Operator::Equals;
            drop(1);
            return true;
        }
        const qsizetype length = wordLength();
        if (m_rest.first(length).compare(u"Like", Qt::CaseInsensitive) != 0)
            return false;
        comparison = Criterion::Operator::Like;
        drop(length);
        return true;
    }

    /** A quoted text that reaches to the end of the criterion. */
    bool takeText(QString &text)
    {
        if (m_rest.size() < 2 || !m_rest.startsWith(u'\'') || !m_rest.endsWith(u'\''))
            return false;
        const QStringView quoted = m_rest.sliced(1, m_rest.size() - 2);
        text.reserve(quoted.size());
        for (qsizetype place = 0; place < quoted.size(); ++place) {
            if (quoted[place] == u'\'') {
                if (++place == quoted.size() || quoted[place] != u'\'')
                    return false;
            }
            text.append(quoted[place]);
        }
        return true;
    }

    bool takeNumber(qint64 &number)
    {
        QStringView digits = m_rest;
        if (digits.startsWith(u'+') || digits.startsWith(u'-'))
            digits = digits.sliced(1);
        const auto isPlainDigit = [](QChar c) { return c >= u'0' && c <= u'9'; };
        if (digits.isEmpty() || !std::all_of(digits.begin(), digits.end(), isPlainDigit))
            return false;
        bool fits = false;
        number = m_rest.toLongLong(&fits);
        return fits;
    }

private:
    qsizetype wordLength() const
    {
        const auto isInWord = [](QChar c) { return c.isLetterOrNumber() || c == u'_'; };
        return std::find_if_not(m_rest.begin(), m_rest.end(), isInWord) - m_rest.begin();
    }

    void drop(qsizetype count) { m_rest = m_rest.sliced(count).trimmed(); }

    QStringView m_rest;
};

} // namespace

std::optional<Criterion> ParseCriterion(const QString &text)
{
    Criterion criterion;
    CriterionReader reader(text);
    if (!reader.takeField(criterion.field) || !reader.takeOperator(criterion.comparison))
        return std::nullopt;
    QString quoted;
    if (reader.takeText(quoted)) {
        criterion.literal = quoted;
        return criterion;
    }
    qint64 number = 0;
    if (criterion.comparison == Criterion::Operator::Like || !reader.takeNumber(number))
        return std::nullopt;
    criterion.literal = number;
    return criterion;
}

} // namespace saldoro
