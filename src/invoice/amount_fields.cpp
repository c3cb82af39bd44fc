#include "invoice/amount_fields.h"

#include "controls/application_look.h"
#include "controls/screen_reader.h"
#include "invoice/entry_field.h"
#include "invoice/field_navigation.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

#include <iterator>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

enum LayoutColumn
{
    CaptionColumn,
    RateColumn,
    AmountColumn
};

} // namespace

AmountFields::AmountFields(CreditorKind kind, FieldNavigation &navigation, QWidget *parent)
    : QGroupBox(parent)
    , m_chain(AmountChainOf(kind))
{
    setObjectName(u"Frame1"_s);
    setTitle({});
    setAccessibleName(u"Importi"_s);
    auto *grid = new QGridLayout(this);
    int line = 0;
    for (auto field = m_chain.fields.begin(); field != m_chain.fields.end(); ++field) {
        QLineEdit *box = addBox(*field, navigation);
        if (!field->caption.isEmpty())
            grid->addWidget(LabelFor(*box, field->caption), ++line, CaptionColumn);
        const auto next = std::next(field);
        if (next != m_chain.fields.end() && next->caption.isEmpty()) { // shares the line
            box->setFixedWidth(BoxWidth(*box, u"99.99"));
            grid->addWidget(box, line, RateColumn);
        } else {
            box->setMinimumWidth(BoxWidth(*box, WidestAmount));
            grid->addWidget(box, line, AmountColumn);
        }
    }
    grid->setColumnStretch(CaptionColumn, 1);
    grid->setRowStretch(grid->rowCount(), 1);
    tintDerived();
}

AmountTexts AmountFields::texts() const
{
    AmountTexts shown;
    for (auto box = m_boxes.begin(); box != m_boxes.end(); ++box)
        shown.setText(box.key(), box.value()->text());
    return shown;
}

void AmountFields::showTexts(const AmountTexts &texts)
{
    for (auto box = m_boxes.begin(); box != m_boxes.end(); ++box) {
        const QString text = texts.text(box.key());
        if (box.value()->text() != text) // setting a text moves the cursor
            box.value()->setText(text);
    }
}

void AmountFields::entered(Amount field)
{
    AmountTexts shown = texts();
    m_past[field].enter(shown.text(field));
    shown.makePlain(field);
    showTexts(shown);
}

void AmountFields::left(Amount field)
{
    AmountTexts shown = texts();
    m_past[field].left = shown.text(field);
    m_chain.leave(shown, field);
    showTexts(shown);
}

void AmountFields::changeEvent(QEvent *event)
{
    QGroupBox::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        tintDerived();
}

QLineEdit *AmountFields::addBox(const AmountField &field, FieldNavigation &navigation)
{
    auto *box = new EntryField(this);
    // Read aloud, each of two boxes under one caption needs a name of its own.
    Describe(*box, field.objectName, m_chain.nameOf(field.amount), field.hint);
    box->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    if (field.reach == Reach::OnRequest)
        box->setFocusPolicy(Qt::ClickFocus);
    const Amount amount = field.amount;
    connect(box, &QLineEdit::textEdited, this, [=, this] { m_past[amount].isRewritten = true; });
    navigation.addLine(
        *box, [=, this] { entered(amount); }, [=, this] { left(amount); });
    m_boxes[amount] = box;
    return box;
}

// The tint shows that the box is computed, though it can be typed into.
void AmountFields::tintDerived()
{
    for (const AmountField &field : m_chain.fields) {
        if (field.role != AmountRole::Derived)
            continue;
        constexpr int tintPercent = 14;
        QPalette tinted = palette();
        tinted.setColor(QPalette::Base, MixedColor(tinted.color(QPalette::Base),
                                                   tinted.color(QPalette::Highlight), tintPercent));
        m_boxes[field.amount]->setPalette(tinted);
    }
}

} // namespace saldoro
