#include "invoice/creditor_fields.h"

#include "controls/date_box.h"
#include "controls/popup_list.h"
#include "controls/screen_reader.h"
#include "invoice/entry_field.h"
#include "invoice/field_navigation.h"
#include "store/table_definitions.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

CreditorFields::CreditorFields(CreditorKind kind, FieldNavigation &navigation, QWidget *form)
    : QWidget(form)
    , m_navigation(navigation)
    , m_list(new PopupList(form))
    , m_creditor(new EntryField(this, LedgerSize::Creditore))
    , m_buttons(new QHBoxLayout)
    , m_lastButton(m_list)
    , m_number(new EntryField(this, LedgerSize::NFat))
    , m_date(new DateBox(this))
    , m_description(new EntryField(this, LedgerSize::Descrizione))
{
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins({});
    addCreditor(*grid);
    addInvoice(*grid, kind);
    preparePickList();
}

QPushButton *CreditorFields::addList(const QString &objectName, const QString &caption,
                                     const QString &hint, Names names)
{
    QPushButton *button =
        m_navigation.addButton(objectName, caption, hint, this, [this, names = std::move(names)] {
            m_list->open(names(), *m_creditor, m_creditor->height());
        });
    m_buttons->addWidget(button);
    // In the Tab order the buttons come before the creditor: from there Enter leads to the invoice.
    setTabOrder(std::exchange(m_lastButton, button), button);
    setTabOrder(button, m_list);
    return button;
}

bool CreditorFields::offersNone() const
{
    return m_list->isVisible() && m_list->count() == 0;
}

void CreditorFields::showRecord(const PaymentRecord &record)
{
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

void CreditorFields::addCreditor(QGridLayout &grid)
{
    QLabel *label = m_navigation.addLine(*m_creditor, u"Text1_0"_s, u"Cre&ditore"_s,
                                         u"Nome del creditore, necessario per confermare"_s);
    auto *line = new QHBoxLayout;
    line->addWidget(m_creditor, 1);
    line->addLayout(m_buttons);
    grid.addWidget(label, 0, 0);
    grid.addLayout(line, 0, 1);
}

void CreditorFields::addInvoice(QGridLayout &grid, CreditorKind kind)
{
    grid.addWidget(
        m_navigation.addLine(*m_number, u"Text1_1"_s, u"&Fattura Nr."_s, u"Numero della fattura"_s),
        1, 0);
    m_number->setMinimumWidth(BoxWidth(*m_number, QString(LedgerSize::NFat, u'0')));
    m_description->setMinimumWidth(
        BoxWidth(*m_description, QString(LedgerSize::Descrizione, u'n')));
    const QString dateBoxName = kind == CreditorKind::Company ? u"MaskEdBox1_0"_s : u"MaskEdBox1"_s;
    auto *line = new QHBoxLayout;
    line->addWidget(m_number, 1);
    line->addWidget(m_navigation.addLine(*m_date, dateBoxName, u"De&l"_s,
                                         u"Data della fattura, giorno/mese/anno"_s));
    line->addWidget(m_date);
    line->addWidget(m_navigation.addLine(*m_description, u"Text1_3"_s, u"De&scrizione"_s,
                                         u"Descrizione del pagamento"_s));
    line->addWidget(m_description, 4);
    grid.addLayout(line, 1, 1);
}

void CreditorFields::preparePickList()
{
    Describe(*m_list, u"List2"_s, u"Creditori"_s,
             u"Frecce e Invio, o un clic, per scegliere il creditore; Esc per rinunciare"_s);
    connect(m_list, &PopupList::answered, this, [this](int row) {
        if (!m_navigation.moveTo(*m_creditor) || row < 0)
            return;
        m_creditor->showText(m_list->item(row)->text());
        m_creditor->selectAll();
    });
    m_navigation.watch(*m_list, {}, [this] { m_list->hide(); });
}

} // namespace saldoro
