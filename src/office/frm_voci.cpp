#include "office/frm_voci.h"

#include "common/amount_text.h"
#include "common/errors.h"
#include "controls/buttons.h"
#include "controls/flex_grid.h"
#include "controls/message_box.h"
#include "controls/window_placement.h"
#include "controls/window_size.h"
#include "office/paste_table.h"
#include "office/task.h"
#include "store/contract_codes.h"
#include "store/open_project.h"
#include "verify/checks.h"

#include <QBoxLayout>
#include <QCloseEvent>
#include <QDir>
#include <QShortcut>

#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

const ExchangedTable &budgetTable()
{
    return *TableNamed(u"UltimaPerVariante"_s);
}

QList<CellFault> budgetFaults(const TableRows &rows)
{
    const ProjectTable budget{budgetTable().definition, rows};
    Findings findings;
    CheckBudget(budget, BudgetOf(budget), findings);
    QList<CellFault> faults;
    for (const Finding &finding : findings)
        faults.append({static_cast<int>(finding.row), {}, finding.problem});
    return faults;
}

QString amountText(const std::optional<Currency> &amount)
{
    return amount ? FormatImporto(*amount) : QString();
}

QString kindOf(const BudgetChange &change)
{
    if (change.isDropped)
        return change.isPaid ? u"sparisce, ma ha pagamenti"_s : u"sparisce"_s;
    return change.isNew ? u"nuova"_s : u"cambia"_s;
}

} // namespace

FrmVoci::FrmVoci(QString root, const QString &code, QWidget *parent)
    : QWidget(parent, Qt::Window)
    , m_root(std::move(root))
    , m_isVariant(!code.isEmpty())
    , m_codes(ContractCodes(m_root))
    , m_pasted(budgetTable(), budgetFaults)
    , m_code(new QLineEdit(m_isVariant ? code : FirstFreeCode(m_codes), this))
    , m_codeProblem(new QLabel(this))
    , m_comparison(new FlexGrid(FlexGrid::Selection::Rows, this))
    , m_refusals(new QListWidget(this))
{
    setObjectName(u"FrmVoci"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::WindowModal);
    setWindowTitle(m_isVariant ? u"Nuova variante dell'appalto "_s + code : u"Nuovo appalto"_s);
    arrange();
    showProblems();
    constexpr int widthInTwips = 13500; // 900 by 620 pixels at 96 dots to the inch
    constexpr int heightInTwips = 9300;
    SizeWindow(*this, {TwipsToPixels(widthInTwips, *this), TwipsToPixels(heightInTwips, *this)});
}

void FrmVoci::arrange()
{
    auto *cells = new PasteTable(m_pasted,
                                 {{u"Voce"_s, u"&Codice"_s},
                                  {u"Descri"_s, u"&Descrizione"_s},
                                  {u"Importo"_s, u"I&mporto"_s}},
                                 this);
    connect(cells, &PasteTable::changed, this, &FrmVoci::showProblems);
    connect(cells, &PasteTable::changed, this, &FrmVoci::showComparison);
    auto *whole = new QVBoxLayout(this);
    whole->addWidget(makeCodeRow());
    whole->addWidget(new QLabel(u"Copiare nel foglio elettronico le celle con codice, descrizione "
                                "e importo delle voci, e incollarle qui (Ctrl+V); o trascinare "
                                "qui un file CSV."_s,
                                this));
    qobject_cast<QLabel *>(whole->itemAt(1)->widget())->setWordWrap(true);
    whole->addWidget(cells, 2);
    whole->addWidget(makeComparison(), 1);
    whole->addWidget(makeRefusals(), 1);
    whole->addLayout(makeButtons());
    cells->setFocus();
}

QWidget *FrmVoci::makeCodeRow()
{
    auto *group = new QWidget(this);
    auto *row = new QHBoxLayout(group);
    row->setContentsMargins({});
    auto *label = new QLabel(u"Codice dell'&appalto:"_s, group);
    label->setBuddy(m_code);
    Describe(*m_code, u"Codice"_s, u"Codice dell'appalto"_s,
             u"Dà il nome alla cartella dell'appalto"_s);
    m_codeProblem->setObjectName(u"Problema"_s);
    m_codeProblem->setTextFormat(Qt::PlainText);
    row->addWidget(label);
    row->addWidget(m_code);
    row->addWidget(m_codeProblem, 1);
    connect(m_code, &QLineEdit::textChanged, this, &FrmVoci::showProblems);
    group->setHidden(m_isVariant);
    return group;
}

QWidget *FrmVoci::makeComparison()
{
    auto *group = new QWidget(this);
    auto *column = new QVBoxLayout(group);
    column->setContentsMargins({});
    auto *label = new QLabel(u"Che cosa cambia &nel quadro:"_s, group);
    label->setBuddy(m_comparison);
    Describe(*m_comparison, u"Confronto"_s, u"Che cosa cambia nel quadro"_s,
             u"Voci nuove, sparite e cambiate; prima quelle con pagamenti che spariscono"_s);
    m_comparison->setWidths({700, FlexGrid::Rest, 1300, 1300, 2200});
    m_comparison->table().setHeader(
        {u"Codice"_s, u"Descrizione"_s, u"Oggi"_s, u"Nuovo"_s, u"Che cosa cambia"_s});
    m_comparison->table().setRightAligned({2, 3});
    column->addWidget(label);
    column->addWidget(m_comparison);
    group->setHidden(!m_isVariant);
    return group;
}

QWidget *FrmVoci::makeRefusals()
{
    auto *group = new QWidget(this);
    auto *column = new QVBoxLayout(group);
    column->setContentsMargins({});
    auto *label = new QLabel(u"Niente è stato scritto. Che cosa non &va:"_s, group);
    label->setBuddy(m_refusals);
    Describe(*m_refusals, u"Rifiuti"_s, u"Che cosa non va"_s,
             u"Ciò per cui niente è stato scritto"_s);
    m_refusals->setWordWrap(true);
    m_evenSo = new PromptButton(u"Comunque"_s,
                                m_isVariant ? u"Sostituisci c&omunque"_s : u"Crea c&omunque"_s,
                                u"Scrive anche ciò che darà problemi più tardi"_s, group);
    connect(m_evenSo, &QPushButton::clicked, this, [this] { Attempt([this] { write(true); }); });
    column->addWidget(label);
    column->addWidget(m_refusals);
    column->addWidget(m_evenSo, 0, Qt::AlignRight);
    group->hide();
    return group;
}

QBoxLayout *FrmVoci::makeButtons()
{
    auto *row = new QHBoxLayout;
    m_write = new PromptButton(u"Scrivi"_s, m_isVariant ? u"&Sostituisci"_s : u"Cr&ea"_s,
                               m_isVariant ? u"Mette queste voci al posto di quelle che ci sono"_s
                                           : u"Crea l'appalto con queste voci"_s,
                               this);
    auto *cancel =
        new PromptButton(u"Annulla"_s, u"Annu&lla"_s, u"Chiude senza scrivere niente"_s, this);
    connect(m_write, &QPushButton::clicked, this, [this] { Attempt([this] { write(false); }); });
    connect(cancel, &QPushButton::clicked, this, &QWidget::close);
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
    row->addStretch(1);
    row->addWidget(m_write);
    row->addWidget(cancel);
    return row;
}

QString FrmVoci::code() const
{
    return m_code->text();
}

QString FrmVoci::folder() const
{
    return ContractsFolder(m_root) + u'/' + code();
}

void FrmVoci::showProblems()
{
    const QString problem = m_isVariant ? QString() : CodeProblem(code(), m_codes);
    m_codeProblem->setText(problem);
    m_refusals->parentWidget()->hide();
    m_write->setEnabled(problem.isEmpty() && m_pasted.isReady());
}

void FrmVoci::showComparison()
{
    TextTable &table = m_comparison->table();
    const TextTable::BulkChange change(table);
    table.setRows(1);
    if (!m_isVariant || m_pasted.taken().isEmpty())
        return;
    Attempt([&] {
        for (const BudgetChange &item : CompareBudget(folder(), m_pasted.taken())) {
            const int row = table.rows();
            table.setRows(row + 1);
            const QStringList cells{item.code, item.description, amountText(item.before),
                                    amountText(item.after), kindOf(item)};
            for (int column = 0; column < cells.size(); ++column)
                table.setText(row, column, cells[column]);
        }
    });
}

void FrmVoci::write(bool evenSo)
{
    if (m_isVariant && IsProjectOpen(folder()))
        throw SaldoroError(u"L'appalto è aperto in Saldoro."_s,
                           u"Chiudere la sua finestra e riprovare."_s);
    QList<int> lines;
    for (int row = 1; row <= m_pasted.taken().size(); ++row)
        lines.append(row);
    const ImportOutcome outcome =
        ImportTables(folder(), {{&budgetTable(), u"Celle incollate"_s, m_pasted.taken(), lines}},
                     {!m_isVariant, evenSo, {budgetTable().name()}});
    if (!outcome.isDone) {
        showRefusals(outcome);
        return;
    }
    QStringList copies;
    for (const QString &copy : outcome.copies)
        copies.append(QDir::toNativeSeparators(copy));
    if (m_isVariant)
        ShowMessage(MessageKind::Information,
                    u"Il quadro è stato cambiato. Com'era sta in:\n"_s + copies.join(u'\n'));
    m_isWritten = true;
    emit written(code());
    close();
}

void FrmVoci::showRefusals(const ImportOutcome &outcome)
{
    m_refusals->clear();
    for (const Finding &finding : outcome.errors + outcome.refusals)
        m_refusals->addItem(finding.place +
                            (finding.problem.isEmpty() ? QString() : u": "_s + finding.problem));
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
