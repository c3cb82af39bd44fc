#include "form_driver.h"

#include "controls/flex_grid.h"
#include "invoice/frm_aziende.h"
#include "invoice/frm_professionisti.h"
#include "overview_probe.h"

namespace saldoro {

using namespace Qt::StringLiterals;

FormDriver::FormDriver()
    : values(archive.values())
    , overview(5)
{
    AddStandardCodes(archive.values());
    AddRow(overview, {u"A1"_s, u"Scavi e rinterri"_s, {}, {}, u"12.500,00"_s});
    AddRow(overview, {u"A2"_s, u"Murature"_s, {}, {}, u"1.800,00"_s});
    AddRow(overview, {u"B10"_s, u"Spese tecniche"_s, {}, {}, u"640,00"_s});
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
    values.CurrentPaymentNumber = 99; // another form's business
    form->show();
    if (!QTest::qWaitForWindowActive(form.get()))
        qFatal("the form did not become active");
}

void FormDriver::play(const QString &steps)
{
    for (const QString &step : steps.split(u", "_s)) {
        const QString verb = step.section(u' ', 0, 0);
        const QString object = step.section(u' ', 1);
        QWidget *const control = QApplication::focusWidget();
        if (verb == "to"_L1) {
            find(object)->setFocus();
        } else if (verb == "click"_L1) {
            QTest::mouseClick(find(object), Qt::LeftButton);
        } else if (verb == "type"_L1) {
            QTest::keyClicks(control, object);
        } else if (verb == "hold"_L1) {
            const QKeyCombination key = QKeySequence(object)[0];
            for (const bool again : {false, true, true})
                qt_handleKeyEvent(form->windowHandle(), QEvent::KeyPress, key.key(),
                                  key.keyboardModifiers(), {}, again);
        } else {
            const QKeyCombination key = QKeySequence(step)[0];
            QTest::keyClick(control, key.key(), key.keyboardModifiers());
        }
    }
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
    return BodyText(find<FlexGrid>(u"MSFlexGrid1"_s)->table()).replace(u'\n', u';');
}

} // namespace saldoro
