#include "invoice/entry_field.h"

#include "common/text_cut.h"

#include <QValidator>

#include <algorithm>

namespace saldoro {

namespace {

/** Refuses the half of a character that the last free place may leave of it. */
class WholeCharacters : public QValidator
{
public:
    using QValidator::QValidator;
    State validate(QString &text, int &) const override
    {
        return text.isValidUtf16() ? Acceptable : Invalid;
    }
};

} // namespace

EntryField::EntryField(int mostCharacters, QWidget *parent)
    : QLineEdit(parent)
    , m_mostCharacters(mostCharacters)
{
    setValidator(new WholeCharacters(this));
    adaptLimit({});
    connect(this, &QLineEdit::textChanged, this, &EntryField::adaptLimit);
}

void EntryField::showText(const QString &text)
{
    setMaxLength(std::max(maxLength(), static_cast<int>(text.size())));
    setText(text);
    setCursorPosition(0);
}

// The line counts units of its encoding, of which some characters take two.
void EntryField::adaptLimit(const QString &text)
{
    const auto free = std::max<qsizetype>(0, m_mostCharacters - CharacterCount(text));
    setMaxLength(static_cast<int>(text.size() + free));
}

} // namespace saldoro
