#include "office/frm_creditori.h"

#include "controls/message_box.h"
#include "office/form_parts.h"
#include "office/paste_table.h"
#include "office/task.h"

#include <QBoxLayout>
#include <QCloseEvent>
#include <QLabel>
#include <QListWidget>
#include <QSignalBlocker>
#include <QTabWidget>

#include <algorithm>
#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

FrmCreditori::FrmCreditori(ProgramValues values, QWidget *parent)
    : QWidget(parent, Qt::Window)
    , m_values(std::move(values))
    , m_known(ReadCreditors(m_values))
    , m_companies(CompanyList(),
                  [this](const TableRows &rows) { return CompanyFaults(rows, m_known); })
    , m_professionals(
          ProfessionalList(),
          [this](const TableRows &rows) { return NameFaults(rows, m_known.professionals); })
    , m_contractor(new ChoiceBox)
    , m_write(MakeButton(u"Scrivi"_s, u"&Salva"_s,
                         u"Aggiunge imprese e professionisti all'appalto"_s, [this] { write(); }))
{
    auto *tabs = new QTabWidget;
    tabs->setObjectName(u"Schede"_s);
    QStringList companyLines = m_known.companies;
    for (qsizetype at = 0; at < companyLines.size(); ++at) {
        if (!m_known.members[at].isEmpty())
            companyLines[at] += u" (mandanti: %1)"_s.arg(m_known.members[at]);
        if (!m_known.participants.contains(m_known.companies[at]))
            companyLines[at] += u" (non partecipa)"_s;
    }
    auto *companies = makePage(m_companies, u"Imprese"_s, companyLines);
    companies->layout()->addWidget(
        new QLabel(u"Di un raggruppamento (A.T.I.) si scrivono le mandanti, separate da «;»."_s));
    companies->layout()->addWidget(MakeField(u"&Appaltatore"_s, Qt::Horizontal, m_contractor,
                                             u"Appaltatore"_s,
                                             u"L'impresa che Saldoro propone come creditore"_s));
    tabs->addTab(companies, u"Im&prese"_s);
    tabs->addTab(makePage(m_professionals, u"Professionisti"_s, m_known.professionals),
                 u"Pr&ofessionisti"_s);
    auto *whole = new QVBoxLayout(this);
    whole->addWidget(tabs, 1);
    whole->addLayout(MakeLastRow(m_write, *this));
    connect(m_contractor, &QComboBox::currentTextChanged, this, &FrmCreditori::showState);
    const auto enterCells = [tabs] {
        tabs->currentWidget()->findChild<QWidget *>(u"Celle"_s)->setFocus();
    };
    connect(tabs, &QTabWidget::currentChanged, tabs, enterCells);
    enterCells();
    showState();
    SetUpModal(*this, u"FrmCreditori"_s,
               u"Imprese e professionisti dell'appalto "_s + m_values.ProjectCode, {12000, 8100});
}

QWidget *FrmCreditori::makePage(PastedTable &pasted, const QString &name, const QStringList &known)
{
    auto *page = new QWidget;
    auto *column = new QVBoxLayout(page);
    auto *list = new QListWidget;
    ShowLines(*list, known);
    column->addWidget(MakeField(u"&Già in archivio"_s, Qt::Vertical, list, name + u"_note"_s,
                                u"Ciò che c'è già resta com'è"_s),
                      1);
    auto *cells = new PasteTable(pasted);
    cells->setObjectName(name);
    column->addWidget(cells, 2);
    connect(cells, &PasteTable::changed, this, &FrmCreditori::showState);
    // The row numbers belong to other companies now, so the chosen one forgets its row.
    connect(cells, &PasteTable::replaced, this,
            [this] { m_contractor->setItemData(m_contractor->currentIndex(), 0); });
    return page;
}

void FrmCreditori::showState()
{
    const QString chosen =
        m_contractor->count() == 0 ? m_known.contractor : m_contractor->currentText();
    const int row = m_contractor->currentData().toInt(); // that is pasted; 0 for none
    const QSignalBlocker blocker(m_contractor);
    m_contractor->clear();
    if (!m_known.companies.contains(m_known.contractor))
        m_contractor->addItem(m_known.contractor);
    m_contractor->addItems(m_known.companies);
    const GivenTable &pasted = m_companies.taken();
    for (qsizetype at = 0; at < pasted.rows.size(); ++at) {
        const QString name = TextOf(pasted.rows[at].first());
        if (name != m_known.contractor && !m_known.companies.contains(name, Qt::CaseInsensitive))
            m_contractor->addItem(name, pasted.lines[at]);
    }
    // The chosen company, by its row when its name is corrected; never another one.
    m_contractor->setCurrentText(m_known.contractor);
    if (const int at = row > 0 ? m_contractor->findData(row) : m_contractor->findText(chosen);
        at >= 0)
        m_contractor->setCurrentIndex(at);
    m_write->setEnabled((hasChanges() || !newContractor().isEmpty()) &&
                        m_companies.count(PastedState::Faulty) == 0 &&
                        m_professionals.count(PastedState::Faulty) == 0);
}

bool FrmCreditori::hasChanges() const
{
    return !m_companies.taken().rows.isEmpty() || !m_professionals.taken().rows.isEmpty() ||
           m_contractor->currentText() != m_known.contractor;
}

QString FrmCreditori::newContractor() const
{
    const QString name = m_contractor->currentText();
    const auto isCompany = [&] {
        return m_known.companies.contains(name) ||
               std::ranges::any_of(m_companies.taken().rows, [&name](const TableRow &company) {
                   return TextOf(company.first()) == name;
               });
    };
    const bool isNew = name != m_known.contractor || (!m_known.isContractorLinked && isCompany());
    return isNew ? name : QString();
}

void FrmCreditori::write()
{
    const QString contractor = newContractor();
    const QStringList copies =
        AddCreditors(m_values, m_companies.taken().rows, m_professionals.taken().rows, contractor);
    ShowMessage(
        MessageKind::Information,
        u"Imprese e professionisti sono stati scritti. Gli archivi com'erano stanno in:\n"_s +
            NativePaths(copies) +
            (contractor.isEmpty()
                 ? QString()
                 : u"\n\nL'appaltatore è ora collegato a «%1»."_s.arg(contractor)));
    m_isWritten = true;
    close();
}

void FrmCreditori::closeEvent(QCloseEvent *event)
{
    const bool isEmpty = m_companies.rows().isEmpty() && m_professionals.rows().isEmpty();
    event->setAccepted(m_isWritten || (isEmpty && !hasChanges()) ||
                       ChiediConferma(u"Le righe nuove vanno perse. Chiudere?"_s));
}

} // namespace saldoro
