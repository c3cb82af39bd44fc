#include "form_driver.h"

#include "controls/flex_grid.h"
#include "invoice/frm_aziende.h"
#include "invoice/frm_professionisti.h"

namespace saldoro {

using namespace Qt::StringLiterals;

FormDriver::FormDriver()
    : values(archive.values())
    , overview(5)
{
    archive.build().addStandardCodes();
    const QList<QStringList> items = {{u"A1"_s, u"Scavi e rinterri"_s, u"12.500,00"_s},
                                      {u"A2"_s, u"Murature"_s, u"1.800,00"_s},
                                      {u"B10"_s, u"Spese tecniche"_s, u"640,00"_s}};
    for (const QStringList &item : items) {
        const int row = overview.rows();
        overview.setRows(row + 1);
        overview.setText(row, 0, item.at(0));
        overview.setText(row, 1, item.at(1));
        overview.setText(row, 4, item.at(2));
    }
    m_realBoxes = ReplaceMessageBoxes([this](MessageKind kind, const QString &text) {
        messages += text;
        return kind == MessageKind::Question ? answer : MessageAnswer::Ok;
    });
}

FormDriver::~FormDriver()
{
    ReplaceMessageBoxes(m_realBoxes);
}

void FormDriver::open(CreditorKind kind, qint32 paymentNumber)
{
    values.CurrentPaymentNumber = paymentNumber;
    if (kind == CreditorKind::Company)
        form = std::make_unique<FrmAziende>(values, overview);
    else
        form = std::make_unique<FrmProfessionisti>(values, overview);
    QObject::connect(form.get(), &InvoiceForm::unloaded, form.get(), [this] { ++unloads; });
    form->load();
    form->show();
    if (!QTest::qWaitForWindowActive(form.get()))
        qFatal("the form did not become active");
}

QString FormDriver::texts(const QString &names) const
{
    QStringList shown;
    for (const QString &name : names.split(u' '))
        shown += text(name).isEmpty() ? u"-"_s : text(name);
    return shown.join(u' ');
}

QString FormDriver::allocations() const
{
    const TextTable &table = find<FlexGrid>(u"MSFlexGrid1"_s)->table();
    QStringList rows;
    for (int row = 1; row < table.rows(); ++row)
        rows += QStringList{table.text(row, 0), table.text(row, 1), table.text(row, 2)}.join(u'|');
    return rows.join(u';');
}

} // namespace saldoro
