#include "invoice/amount_fields.h"

#include "invoice/company_amounts.h"
#include "invoice/form_fields.h"
#include "invoice/professional_amounts.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

enum LayoutColumn
{
    CaptionPlace,
    RatePlace,
    AmountPlace
};

QColor mixed(const QColor &base, const QColor &tint)
{
    constexpr qreal tintShare = 0.14;
    const auto mix = [](float one, float other) {
        return static_cast<float>(one * (1 - tintShare) + other * tintShare);
    };
    return QColor::fromRgbF(mix(base.redF(), tint.redF()), mix(base.greenF(), tint.greenF()),
                            mix(base.blueF(), tint.blueF()));
}

std::unique_ptr<AmountChain> makeChain(CreditorKind kind, AmountTexts &texts)
{
    if (kind == CreditorKind::Company)
        return std::make_unique<CompanyAmounts>(texts);
    return std::make_unique<ProfessionalAmounts>(texts);
}

} // namespace

int BoxWidth(const QWidget &box, QStringView widest)
{
    const int frame = 2 * box.fontMetrics().averageCharWidth();
    return box.fontMetrics().horizontalAdvance(widest.toString()) + frame;
}

AmountFields::AmountFields(CreditorKind kind, FormFields &fields, QWidget *parent)
    : QGroupBox(parent)
    , m_chain(makeChain(kind, *this))
    , m_boxes(m_chain->fields().size(), nullptr)
{
    setObjectName(u"Frame1"_s);
    setTitle({});
    setAccessibleName(u"Importi"_s);
    auto *grid = new QGridLayout(this);
    for (int position = 0; position < m_boxes.size(); ++position) {
        if (!m_boxes.at(position))
            addLine(*grid, position, fields);
    }
    grid->setColumnStretch(CaptionPlace, 1);
    grid->setRowStretch(grid->rowCount(), 1);
    tintDerived();
}

QString AmountFields::text(int position) const
{
    return m_boxes.at(position)->text();
}

void AmountFields::setText(int position, const QString &text)
{
    if (m_boxes.at(position)->text() != text) // the cursor stays where nothing changes
        m_boxes.at(position)->setText(text);
}

void AmountFields::changeEvent(QEvent *event)
{
    QGroupBox::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        tintDerived();
}

QLineEdit *AmountFields::addBox(int position, const QString &spokenName, FormFields &fields)
{
    const AmountField &field = m_chain->fields().at(position);
    auto *box = new QLineEdit(this);
    Describe(*box, field.objectName, spokenName, field.hint);
    box->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    if (field.reach == Reach::OnRequest)
        box->setFocusPolicy(Qt::ClickFocus);
    fields.addLine(
        *box, [this, position] { m_chain->entered(position); },
        [this, position] {
            m_chain->left(position);
            return Leaving::Allowed;
        });
    m_boxes[position] = box;
    return box;
}

void AmountFields::addLine(QGridLayout &grid, int position, FormFields &fields)
{
    const int line = grid.rowCount();
    const QString caption = m_chain->fields().at(position).caption;
    QString spokenName = QString(caption).remove(u'&');
    QLineEdit *first = nullptr;
    if (position + 1 < m_boxes.size() && m_chain->fields().at(position + 1).caption.isEmpty()) {
        // Two boxes under one caption: it is read aloud for one at a time.
        const QString both = u"Aliquota e importo"_s;
        first = addBox(position, QString(spokenName).replace(both, u"Aliquota"_s), fields);
        first->setFixedWidth(BoxWidth(*first, u"99.99"));
        grid.addWidget(first, line, RatePlace);
        spokenName.replace(both, u"Importo"_s);
        ++position;
    }
    QLineEdit *amount = addBox(position, spokenName, fields);
    amount->setMinimumWidth(BoxWidth(*amount, WidestAmount));
    grid.addWidget(amount, line, AmountPlace);
    grid.addWidget(LabelFor(first ? *first : *amount, caption), line, CaptionPlace);
}

// Still an entry box, but one whose content usually comes by itself.
void AmountFields::tintDerived()
{
    for (int i = 0; i < m_boxes.size(); ++i) {
        if (!m_boxes.at(i) || m_chain->fields().at(i).role != AmountRole::Derived)
            continue;
        QPalette tinted = palette();
        tinted.setColor(QPalette::Base,
                        mixed(tinted.color(QPalette::Base), tinted.color(QPalette::Highlight)));
        m_boxes.at(i)->setPalette(tinted);
    }
}

} // namespace saldoro
