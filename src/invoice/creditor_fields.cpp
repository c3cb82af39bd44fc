#include "invoice/creditor_fields.h"

#include "controls/date_box.h"
#include "invoice/amount_fields.h"
#include "invoice/entry_field.h"
#include "invoice/form_fields.h"
#include "invoice/popup_list.h"
#include "store/ledger.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

namespace saldoro {

using namespace Qt::StringLiterals;

CreditorFields::CreditorFields(const QString &dateBoxName, FormFields &fields, QWidget *form)
    : QWidget(form)
    , m_fields(fields)
    , m_creditor(new EntryField(this, LedgerSize::Creditore))
    , m_searches(new QHBoxLayout)
    , m_number(new EntryField(this, LedgerSize::NFat))
    , m_date(new DateBox(this))
    , m_description(new EntryField(this, LedgerSize::Descrizione))
    , m_list(new PopupList(form))
{
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins({});
    addCreditor(*grid);
    addInvoice(*grid, dateBoxName);
    addList();
}

QPushButton *CreditorFields::addSearch(const QString &objectName, const QString &caption,
                                       const QString &hint, Names names)
{
    QPushButton *button = new PromptButton(objectName, caption, hint, this);
    m_fields.addButton(*button, [this, names = std::move(names)] { offer(names()); });
    QWidget *before =
        m_searches->isEmpty() ? m_creditor : m_searches->itemAt(m_searches->count() - 1)->widget();
    m_searches->addWidget(button);
    setTabOrder(before, button);
    setTabOrder(button, m_list);
    return button;
}

void CreditorFields::showRecord(const PaymentRecord &record)
{
    m_list->hide();
    m_creditor->showText(record.creditore);
    m_number->showText(record.nFat);
    m_date->setDateText(record.del);
    m_description->showText(record.descrizione);
}

void CreditorFields::readInto(PaymentRecord &record) const
{
    record.creditore = m_creditor->text();
    record.nFat = m_number->text();
    record.del = m_date->text();
    record.descrizione = m_description->text();
}

QString CreditorFields::creditor() const
{
    return m_creditor->text();
}

void CreditorFields::focusCreditor()
{
    m_creditor->setFocus(Qt::OtherFocusReason);
}

void CreditorFields::addCreditor(QGridLayout &grid)
{
    Describe(*m_creditor, u"Text1_0"_s, u"Creditore"_s,
             u"Nome del creditore, necessario per confermare"_s);
    m_fields.addLine(*m_creditor);
    connect(m_creditor, &QLineEdit::textChanged, this, &CreditorFields::creditorChanged);
    auto *line = new QHBoxLayout;
    line->addWidget(m_creditor, 1);
    line->addLayout(m_searches);
    grid.addWidget(LabelFor(*m_creditor, u"Cre&ditore"_s), 0, 0);
    grid.addLayout(line, 0, 1);
}

void CreditorFields::addInvoice(QGridLayout &grid, const QString &dateBoxName)
{
    Describe(*m_number, u"Text1_1"_s, u"Fattura Nr."_s, u"Numero della fattura"_s);
    Describe(*m_date, dateBoxName, u"Del"_s, u"Data della fattura, giorno/mese/anno"_s);
    Describe(*m_description, u"Text1_3"_s, u"Descrizione"_s, u"Descrizione del pagamento"_s);
    m_fields.addLine(*m_number);
    m_fields.addDate(*m_date);
    m_fields.addLine(*m_description);
    m_number->setMinimumWidth(BoxWidth(*m_number, QString(LedgerSize::NFat, u'0')));
    m_description->setMinimumWidth(
        BoxWidth(*m_description, QString(LedgerSize::Descrizione, u'n')));
    auto *line = new QHBoxLayout;
    line->addWidget(m_number, 1);
    line->addWidget(LabelFor(*m_date, u"De&l"_s));
    line->addWidget(m_date);
    line->addWidget(LabelFor(*m_description, u"De&scrizione"_s));
    line->addWidget(m_description, 4);
    grid.addWidget(LabelFor(*m_number, u"&Fattura Nr."_s), 1, 0);
    grid.addLayout(line, 1, 1);
}

void CreditorFields::addList()
{
    Describe(*m_list, u"List2"_s, u"Creditori"_s,
             u"Frecce e Invio, o un clic, per scegliere il creditore; Esc per "
             u"rinunciare"_s);
    connect(m_list, &PopupList::picked, this, [this](int, const QString &name) {
        m_creditor->showText(name);
        m_fields.focus().moveTo(*m_creditor);
    });
    connect(m_list, &PopupList::dismissed, this, [this] { m_fields.focus().moveTo(*m_creditor); });
    m_fields.focus().watch(*m_list, {}, [this] {
        m_list->hide();
        return Leaving::Allowed;
    });
}

void CreditorFields::offer(const QStringList &names)
{
    const QPoint corner = m_creditor->mapTo(window(), QPoint(0, m_creditor->height()));
    const QSize room(m_creditor->width(), window()->height() - corner.y());
    m_list->open(names, QRect(corner, room));
}

} // namespace saldoro
