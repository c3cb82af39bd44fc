#pragma once

#include <QValidator>

#include <functional>

namespace saldoro {

/** Lets a function decide over each edit of a line before it shows. */
class EditRule : public QValidator
{
public:
    /** May rewrite the text and move the cursor, see QValidator::validate(). */
    using Rule = std::function<State(QString &text, int &cursor)>;

    EditRule(QObject *parent, Rule rule)
        : QValidator(parent)
        , m_rule(std::move(rule))
    {
    }

    State validate(QString &text, int &cursor) const override { return m_rule(text, cursor); }

private:
    Rule m_rule;
};

} // namespace saldoro
