#include "office/frm_creditori.h"

#include "common/errors.h"
#include "controls/buttons.h"
#include "controls/message_box.h"
#include "controls/window_placement.h"
#include "controls/window_size.h"
#include "exchange/import.h"
#include "office/paste_table.h"
#include "office/task.h"

#include <QBoxLayout>
#include <QCloseEvent>
#include <QDir>
#include <QLabel>
#include <QShortcut>
#include <QSignalBlocker>
#include <QTabWidget>

#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

FrmCreditori::FrmCreditori(QString folder, QWidget *parent)
    : QWidget(parent, Qt::Window)
    , m_folder(std::move(folder))
    , m_known(ReadCreditors(m_folder))
    , m_companies(
          CompanyList(),
          [this](const TableRows &rows) { return RepeatedNames(rows, m_known.companies); },
          m_known.companies)
    , m_professionals(
          ProfessionalList(),
          [this](const TableRows &rows) { return RepeatedNames(rows, m_known.professionals); },
          m_known.professionals)
    , m_contractor(new QComboBox(this))
    , m_write(new PromptButton(u"Scrivi"_s, u"&Salva"_s,
                               u"Aggiunge imprese e professionisti all'appalto"_s, this))
{
    setObjectName(u"FrmCreditori"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::WindowModal);
    setWindowTitle(u"Imprese e professionisti dell'appalto "_s + QFileInfo(m_folder).fileName());
    auto *tabs = new QTabWidget(this);
    tabs->setObjectName(u"Schede"_s);
    tabs->addTab(makeCompanies(), u"Im&prese"_s);
    auto *professionals = new PasteTable(m_professionals, {{u"Nome"_s, u"&Nome"_s}}, this);
    professionals->setObjectName(u"Professionisti"_s);
    connect(professionals, &PasteTable::changed, this, &FrmCreditori::showState);
    tabs->addTab(professionals, u"Pr&ofessionisti"_s);
    auto *cancel =
        new PromptButton(u"Annulla"_s, u"Annu&lla"_s, u"Chiude senza scrivere niente"_s, this);
    connect(m_write, &QPushButton::clicked, this, [this] { Attempt([this] { write(); }); });
    connect(cancel, &QPushButton::clicked, this, &QWidget::close);
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(m_write);
    buttons->addWidget(cancel);
    auto *whole = new QVBoxLayout(this);
    whole->addWidget(tabs, 1);
    whole->addLayout(buttons);
    showState();
    constexpr int widthInTwips = 12000; // 800 by 540 pixels at 96 dots to the inch
    constexpr int heightInTwips = 8100;
    SizeWindow(*this, {TwipsToPixels(widthInTwips, *this), TwipsToPixels(heightInTwips, *this)});
}

QWidget *FrmCreditori::makeCompanies()
{
    auto *page = new QWidget(this);
    auto *column = new QVBoxLayout(page);
    auto *hint = new QLabel(u"Di un raggruppamento (A.T.I.) si scrivono le mandanti, separate da "
                            "«;»."_s,
                            page);
    hint->setWordWrap(true);
    auto *companies = new PasteTable(
        m_companies, {{u"Nome"_s, u"&Nome"_s}, {u"Mandanti"_s, u"&Mandanti"_s}}, page);
    companies->setObjectName(u"Imprese"_s);
    auto *row = new QHBoxLayout;
    auto *label = new QLabel(u"&Appaltatore:"_s, page);
    label->setBuddy(m_contractor);
    Describe(*m_contractor, u"Appaltatore"_s, u"Appaltatore"_s,
             u"L'impresa che Saldoro propone come creditore"_s);
    row->addWidget(label);
    row->addWidget(m_contractor, 1);
    column->addWidget(hint);
    column->addWidget(companies, 1);
    column->addLayout(row);
    connect(companies, &PasteTable::changed, this, &FrmCreditori::showState);
    connect(m_contractor, &QComboBox::currentTextChanged, this, &FrmCreditori::showState);
    return page;
}

void FrmCreditori::showState()
{
    const QString chosen =
        m_contractor->count() == 0 ? m_known.contractor : m_contractor->currentText();
    QStringList names;
    if (m_known.contractor.isEmpty())
        names.append(QString());
    for (const QStringList &company : m_known.companies)
        names.append(company.first());
    for (const TableRow &company : m_companies.taken())
        names.append(TextOf(company.first()));
    {
        const QSignalBlocker blocker(m_contractor);
        m_contractor->clear();
        m_contractor->addItems(names);
        m_contractor->setCurrentText(chosen);
    }
    m_write->setEnabled(hasChanges() && m_companies.count(PastedState::Faulty) == 0 &&
                        m_professionals.count(PastedState::Faulty) == 0);
}

bool FrmCreditori::hasChanges() const
{
    return !m_companies.taken().isEmpty() || !m_professionals.taken().isEmpty() ||
           m_contractor->currentText() != m_known.contractor;
}

void FrmCreditori::write()
{
    const QString contractor = m_contractor->currentText();
    const QList<CsvTable> tables =
        TablesWithCreditors(m_folder, m_companies.taken(), m_professionals.taken(),
                            contractor == m_known.contractor ? QString() : contractor);
    ImportOptions options{false, true, {}};
    for (const CsvTable &table : tables)
        options.replacedTables.append(table.table->name());
    const ImportOutcome outcome = ImportTables(m_folder, tables, options);
    if (!outcome.isDone)
        throw SaldoroError(outcome.remarks());
    QStringList copies;
    for (const QString &copy : outcome.copies)
        copies.append(QDir::toNativeSeparators(copy));
    m_known = ReadCreditors(m_folder);
    ShowMessage(
        MessageKind::Information,
        u"Imprese e professionisti sono stati scritti. Gli archivi com'erano stanno in:\n"_s +
            copies.join(u'\n'));
    m_companies.setRows({});
    m_professionals.setRows({});
    close();
}

void FrmCreditori::closeEvent(QCloseEvent *event)
{
    event->setAccepted(!hasChanges() || ChiediConferma(u"Le righe nuove vanno perse. Chiudere?"_s));
}

} // namespace saldoro
