#include "office/frm_controllo.h"

#include "controls/buttons.h"
#include "controls/message_box.h"
#include "controls/window_placement.h"
#include "controls/window_size.h"
#include "exchange/payment_values.h"
#include "office/task.h"
#include "store/archive_paths.h"
#include "verify/verification.h"

#include <QBoxLayout>
#include <QDir>
#include <QFileInfo>
#include <QShortcut>

namespace saldoro {

using namespace Qt::StringLiterals;

FrmControllo::FrmControllo(const QString &folder, QWidget *parent)
    : QWidget(parent, Qt::Window)
    , m_folder(folder)
    , m_findings(new QListWidget(this))
    , m_result(new QLabel(this))
    , m_payments(new QComboBox(this))
    , m_day(new DateBox(this))
{
    setObjectName(u"FrmControllo"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::WindowModal);
    setWindowTitle(u"Controllo dell'appalto "_s + QFileInfo(folder).fileName());
    Describe(*m_findings, u"Difetti"_s, u"Difetti"_s, u"Che cosa darà problemi, e che cosa fare"_s);
    m_findings->setWordWrap(true);
    m_findings->setAlternatingRowColors(true);
    m_result->setObjectName(u"Risultato"_s);
    m_result->setTextFormat(Qt::PlainText);
    m_result->setBuddy(m_findings);
    auto *close = new PromptButton(u"Chiudi"_s, u"&Chiudi"_s, u"Chiude il controllo"_s, this);
    auto *whole = new QVBoxLayout(this);
    whole->addWidget(m_result);
    whole->addWidget(m_findings, 1);
    whole->addWidget(makeDayRow());
    whole->addWidget(close, 0, Qt::AlignRight);
    connect(close, &QPushButton::clicked, this, &QWidget::close);
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
    check();
    constexpr int widthInTwips = 12000; // 800 by 500 pixels at 96 dots to the inch
    constexpr int heightInTwips = 7500;
    SizeWindow(*this, {TwipsToPixels(widthInTwips, *this), TwipsToPixels(heightInTwips, *this)});
}

QWidget *FrmControllo::makeDayRow()
{
    auto *group = new QWidget(this);
    auto *row = new QHBoxLayout(group);
    row->setContentsMargins({});
    const auto add = [&](const QString &caption, QWidget *field, const QString &name) {
        auto *label = new QLabel(caption, group);
        label->setBuddy(field);
        Describe(*field, name, QString(caption).remove(u'&').remove(u':'),
                 u"Il giorno della fattura di un pagamento che non l'ha"_s);
        row->addWidget(label);
        row->addWidget(field);
    };
    add(u"&Pagamento senza data:"_s, m_payments, u"Pagamento"_s);
    add(u"D&ata:"_s, m_day, u"Data"_s);
    auto *set = new PromptButton(u"Imposta"_s, u"&Imposta la data"_s,
                                 u"Scrive la data nel pagamento"_s, group);
    row->addWidget(set);
    row->addStretch(1);
    connect(set, &QPushButton::clicked, this, [this] { Attempt([this] { setDay(); }); });
    return group;
}

void FrmControllo::check()
{
    const Findings findings = VerifyProject(m_folder);
    m_findings->clear();
    for (const Finding &finding : findings)
        m_findings->addItem(u"%1: %2\n%3"_s.arg(finding.place, finding.problem, finding.remedy));
    m_findings->setCurrentRow(0);
    m_result->setText(findings.isEmpty() ? u"Nessun difetto."_s
                                         : u"&Difetti trovati: %1"_s.arg(findings.size()));
    m_payments->clear();
    const QString ledger = ArchiveFilePath(ArchiveFile::Ledger, m_folder);
    try {
        m_payments->addItems(PaymentsWithoutDay(ledger));
    } catch (const DatabaseError &) {
        // The check has told why the ledger can't be read.
    }
    m_payments->parentWidget()->setVisible(m_payments->count() > 0);
    m_day->setDateText({});
}

void FrmControllo::setDay()
{
    const QString copy = SetPaymentValues(ArchiveFilePath(ArchiveFile::Ledger, m_folder),
                                          {m_payments->currentText(), u"Del"_s, m_day->text()});
    ShowMessage(MessageKind::Information,
                u"La data è stata scritta. Il registro com'era sta in:\n"_s +
                    QDir::toNativeSeparators(copy));
    check();
}

} // namespace saldoro
