#include "office/frm_voci.h"

#include "controls/message_box.h"
#include "exchange/budget_changes.h"
#include "exchange/import.h"
#include "office/form_parts.h"
#include "office/paste_table.h"
#include "office/task.h"
#include "store/contract_folders.h"
#include "store/project_open_mark.h"
#include "verify/contract_checks.h"

#include <QBoxLayout>
#include <QCloseEvent>

#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

QList<CellFault> budgetFaults(const TableRows &rows)
{
    const ExchangedTable &table = *TableNamed(u"UltimaPerVariante"_s);
    const ProjectTables budget{{table.name(), {table.definition, rows}}};
    Findings findings;
    CheckBudget(CheckedProject(budget), findings);
    QList<CellFault> faults;
    for (const Finding &finding : findings)
        faults.append(
            {static_cast<int>(finding.row) + 1,
             {},
             (finding.row < 0 ? finding.subject + u": "_s : QString()) + finding.problem});
    return faults;
}

} // namespace

FrmVoci::FrmVoci(QString root, const QString &code, QWidget *parent)
    : QWidget(parent, Qt::Window)
    , m_root(std::move(root))
    , m_isVariant(!code.isEmpty())
    , m_codes(ContractCodes(m_root))
    , m_pasted(*TableNamed(u"UltimaPerVariante"_s), budgetFaults)
    , m_code(new QLineEdit(m_isVariant ? code : FirstFreeContractCode(m_codes)))
    , m_codeProblem(new QLabel)
    , m_changes(new QListWidget)
    , m_refusals(new QListWidget)
{
    auto *hint = new QLabel(u"Copiare nel foglio elettronico le celle con codice, descrizione "
                            "e importo delle voci, e incollarle qui (Ctrl+V); o trascinare "
                            "qui un file CSV."_s);
    hint->setWordWrap(true);
    auto *cells = new PasteTable(m_pasted);
    auto *changes = MakeField(u"Che cosa cambia &nel quadro"_s, Qt::Vertical, m_changes,
                              u"Confronto"_s, u"Prima le voci con pagamenti che spariscono"_s);
    changes->setVisible(m_isVariant);
    auto *whole = new QVBoxLayout(this);
    whole->addWidget(makeCodeRow());
    whole->addWidget(hint);
    whole->addWidget(cells, 2);
    whole->addWidget(changes, 1);
    whole->addWidget(makeRefusals(), 1);
    whole->addLayout(makeButtons());
    connect(cells, &PasteTable::changed, this, &FrmVoci::showState);
    connect(m_code, &QLineEdit::textChanged, this, &FrmVoci::showState);
    cells->setFocus();
    showState();
    SetUpModal(*this, u"FrmVoci"_s,
               m_isVariant ? u"Nuova variante dell'appalto "_s + code : u"Nuovo appalto"_s,
               {13500, 9300});
}

QWidget *FrmVoci::makeCodeRow()
{
    auto *row = MakeField(u"Codice dell'&appalto"_s, Qt::Horizontal, m_code, u"Codice"_s,
                          u"Dà il nome alla cartella dell'appalto"_s);
    m_codeProblem->setObjectName(u"Problema"_s);
    m_codeProblem->setTextFormat(Qt::PlainText);
    row->layout()->addWidget(m_codeProblem);
    row->setHidden(m_isVariant);
    return row;
}

QWidget *FrmVoci::makeRefusals()
{
    auto *group = MakeField(u"Niente è stato scritto. Che cosa non &va"_s, Qt::Vertical, m_refusals,
                            u"Rifiuti"_s, u"Ciò per cui niente è stato scritto"_s);
    m_refusals->setWordWrap(true);
    m_evenSo =
        MakeButton(u"Comunque"_s, m_isVariant ? u"Sostituisci c&omunque"_s : u"Crea c&omunque"_s,
                   u"Scrive anche ciò che darà problemi più tardi"_s, [this] { write(true); });
    group->layout()->addWidget(m_evenSo);
    group->layout()->setAlignment(m_evenSo, Qt::AlignRight);
    return group;
}

QLayout *FrmVoci::makeButtons()
{
    m_write = MakeButton(u"Scrivi"_s, m_isVariant ? u"&Sostituisci"_s : u"Cr&ea"_s,
                         m_isVariant ? u"Mette queste voci al posto di quelle che ci sono"_s
                                     : u"Crea l'appalto con queste voci"_s,
                         [this] { write(false); });
    return MakeLastRow(m_write, *this);
}

QString FrmVoci::folder() const
{
    return ContractFolder(m_root, m_code->text());
}

void FrmVoci::showState()
{
    const QString problem = m_isVariant ? QString() : ContractCodeProblem(m_code->text(), m_codes);
    m_codeProblem->setText(problem);
    m_refusals->parentWidget()->hide();
    m_write->setEnabled(problem.isEmpty() && m_pasted.isReady());
    if (m_isVariant)
        Attempt([this] { showChanges(); });
}

void FrmVoci::showChanges()
{
    QStringList lines;
    if (const TableRows &rows = m_pasted.taken().rows; !rows.isEmpty()) {
        for (const BudgetChange &change : CompareBudget(folder(), rows))
            lines.append(change.text());
    }
    ShowLines(*m_changes, lines);
}

void FrmVoci::write(bool evenSo)
{
    if (m_isVariant) {
        RequireClosed(folder());
    } else {
        m_codes = ContractCodes(m_root); // others make contracts, too
        showState();
        if (!m_write->isEnabled())
            return m_code->setFocus();
    }
    const GivenTable &budget = m_pasted.taken();
    const QStringList replaced(m_isVariant ? 1 : 0, budget.table->name());
    const ImportOutcome outcome =
        ImportTables(folder(), {budget}, {!m_isVariant, evenSo, replaced});
    if (outcome.isDone) {
        if (m_isVariant)
            ShowMessage(MessageKind::Information,
                        u"Il quadro è stato cambiato. Com'era sta in:\n"_s +
                            NativePaths(outcome.copies));
        if (!outcome.warnings.isEmpty())
            ShowMessage(MessageKind::Information, outcome.warnings.join(u"\n\n"_s));
        m_isWritten = true;
        emit written(m_code->text());
        close();
        return;
    }
    ShowLines(*m_refusals, LinesOf(outcome.errors + outcome.refusals));
    m_evenSo->setVisible(outcome.errors.isEmpty());
    m_refusals->parentWidget()->show();
    m_refusals->setFocus();
}

void FrmVoci::closeEvent(QCloseEvent *event)
{
    event->setAccepted(m_isWritten || m_pasted.rows().isEmpty() ||
                       ChiediConferma(u"Le righe incollate vanno perse. Chiudere?"_s));
}

} // namespace saldoro
