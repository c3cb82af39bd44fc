#include "invoice/amount_fields.h"

#include "invoice/form_fields.h"

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

/** What is read aloud for a box: a caption that stands for two boxes names one at a time. */
QString spokenName(const AmountRow &row, LayoutColumn place)
{
    QString name = QString(row.caption).remove(u'&');
    if (!row.rateName.isEmpty())
        name.replace(u"Aliquota e importo"_s, place == RatePlace ? u"Aliquota"_s : u"Importo"_s);
    return name;
}

} // namespace

int BoxWidth(const QWidget &box, QStringView widest)
{
    const int frame = 2 * box.fontMetrics().averageCharWidth();
    return box.fontMetrics().horizontalAdvance(widest.toString()) + frame;
}

AmountFields::AmountFields(AmountChain &chain, const QList<AmountRow> &rows, FormFields &fields,
                           QWidget *parent)
    : QGroupBox(parent)
    , m_chain(chain)
    , m_boxes(chain.fieldCount(), nullptr)
{
    setObjectName(u"Frame1"_s);
    setTitle({});
    setAccessibleName(u"Importi"_s);
    auto *grid = new QGridLayout(this);
    for (const AmountRow &row : rows)
        addRow(*grid, row, fields);
    grid->setColumnStretch(CaptionPlace, 1);
    grid->setRowStretch(grid->rowCount(), 1);
    tintDerived();
}

void AmountFields::readAll()
{
    for (int i = 0; i < m_boxes.size(); ++i)
        m_chain.setText(i, m_boxes.at(i)->text());
}

void AmountFields::showAll()
{
    for (int i = 0; i < m_boxes.size(); ++i) {
        if (m_boxes.at(i)->text() != m_chain.text(i))
            m_boxes.at(i)->setText(m_chain.text(i));
    }
}

void AmountFields::changeEvent(QEvent *event)
{
    QGroupBox::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        tintDerived();
}

QLineEdit *AmountFields::addBox(const QString &objectName, const QString &name, const QString &hint,
                                FormFields &fields)
{
    const int position = m_chain.position(objectName);
    auto *box = new QLineEdit(this);
    Describe(*box, objectName, name, hint);
    box->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    fields.addLine(
        *box, [this, position] { entered(position); },
        [this, position] {
            left(position);
            return Leaving::Allowed;
        });
    m_boxes[position] = box;
    return box;
}

void AmountFields::addRow(QGridLayout &grid, const AmountRow &row, FormFields &fields)
{
    const int line = grid.rowCount();
    QLineEdit *rate = nullptr;
    if (!row.rateName.isEmpty()) {
        rate = addBox(row.rateName, spokenName(row, RatePlace), row.hint, fields);
        rate->setFixedWidth(BoxWidth(*rate, u"99.99"));
        grid.addWidget(rate, line, RatePlace);
    }
    QLineEdit *amount = addBox(row.amountName, spokenName(row, AmountPlace), row.hint, fields);
    amount->setMinimumWidth(BoxWidth(*amount, WidestAmount));
    if (row.reach == Reach::OnRequest)
        amount->setFocusPolicy(Qt::ClickFocus);
    grid.addWidget(amount, line, AmountPlace);
    grid.addWidget(LabelFor(rate ? *rate : *amount, row.caption), line, CaptionPlace);
}

void AmountFields::entered(int position)
{
    readAll();
    m_chain.entered(position);
    showAll();
}

void AmountFields::left(int position)
{
    readAll();
    m_chain.left(position);
    showAll();
}

// Still an entry box, but one whose content usually comes by itself.
void AmountFields::tintDerived()
{
    for (int i = 0; i < m_boxes.size(); ++i) {
        if (!m_boxes.at(i) || m_chain.field(i).role != AmountRole::Derived)
            continue;
        QPalette tinted = palette();
        tinted.setColor(QPalette::Base,
                        mixed(tinted.color(QPalette::Base), tinted.color(QPalette::Highlight)));
        m_boxes.at(i)->setPalette(tinted);
    }
}

} // namespace saldoro
