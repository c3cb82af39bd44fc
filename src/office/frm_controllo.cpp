#include "office/frm_controllo.h"

#include "common/errors.h"
#include "controls/message_box.h"
#include "exchange/missing_payment_values.h"
#include "office/form_parts.h"
#include "office/task.h"
#include "store/archive_paths.h"
#include "verify/verification.h"

#include <QBoxLayout>
#include <QFileInfo>
#include <QPushButton>

#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

FrmControllo::FrmControllo(QString folder, QWidget *parent)
    : QWidget(parent, Qt::Window)
    , m_folder(std::move(folder))
    , m_findings(new QListWidget)
    , m_dayRow(new QWidget)
    , m_payments(new ChoiceBox)
    , m_day(new DateBox)
{
    m_findings->setWordWrap(true);
    m_findings->setAlternatingRowColors(true);
    auto *row = new QHBoxLayout(m_dayRow);
    row->setContentsMargins({});
    const QString hint = u"Il giorno della fattura di un pagamento che non l'ha"_s;
    row->addWidget(
        MakeField(u"&Pagamento senza data"_s, Qt::Horizontal, m_payments, u"Pagamento"_s, hint));
    row->addWidget(MakeField(u"D&ata"_s, Qt::Horizontal, m_day, u"Data"_s, hint));
    row->addWidget(MakeButton(u"Imposta"_s, u"&Imposta la data"_s,
                              u"Scrive la data nel pagamento"_s, [this] { setDay(); }));
    row->addStretch(1);
    auto *whole = new QVBoxLayout(this);
    whole->addWidget(MakeField(u"&Difetti"_s, Qt::Vertical, m_findings, u"Difetti"_s,
                               u"Che cosa darà problemi, e che cosa fare"_s));
    whole->addWidget(m_dayRow);
    whole->addWidget(
        MakeButton(u"Chiudi"_s, u"&Chiudi"_s, u"Chiude il controllo"_s, [this] { close(); }), 0,
        Qt::AlignRight);
    SetUpModal(*this, u"FrmControllo"_s,
               u"Controllo dell'appalto "_s + QFileInfo(m_folder).fileName(), {12000, 7500});
}

void FrmControllo::check()
{
    m_findings->clear();
    m_payments->clear();
    m_dayRow->hide();
    QStringList lines;
    const auto verify = [&] {
        for (const Finding &finding : VerifyProject(m_folder))
            lines.append(LineOf(finding) + u'\n' + finding.remedy);
    };
    if (!AttemptLong(*this, windowTitle(), verify))
        return m_findings->addItem(
            u"Il controllo non è arrivato in fondo: non si sa che cosa darà problemi."_s);
    ShowLines(*m_findings, lines.isEmpty() ? QStringList(u"Nessun difetto."_s) : lines);
    try {
        m_payments->addItems(PaymentsWithoutDay(ArchiveFilePath(ArchiveFile::Ledger, m_folder)));
    } catch (const DatabaseError &) {
        // The check has told why the ledger can't be read.
    }
    m_dayRow->setVisible(m_payments->count() > 0);
    m_day->setDateText({});
}

void FrmControllo::setDay()
{
    m_day->settle();
    const QString copy = SetPaymentValues(ArchiveFilePath(ArchiveFile::Ledger, m_folder),
                                          {m_payments->currentText(), u"Del"_s, m_day->text()});
    ShowMessage(MessageKind::Information,
                u"La data è stata scritta. Il registro com'era sta in:\n"_s + NativePaths({copy}));
    check();
}

} // namespace saldoro
