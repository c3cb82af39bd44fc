#include "overview/closing_work.h"

#include "common/overview_column.h"
#include "common/text_cut.h"
#include "overview/document_register.h"
#include "overview/frm_elab.h"
#include "overview/statement_documents.h"
#include "store/internal_codes.h"

#include <array>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

QString overviewLine(const TextTable &overview, int row)
{
    constexpr std::array<qsizetype, OverviewColumn::Count> widths = {5, 35, 17, 17, 17};
    QString line;
    for (int column = 0; column < OverviewColumn::Count; ++column) {
        line += FixedWidth(overview.text(row, column), widths.at(static_cast<size_t>(column)));
        if (column == OverviewColumn::Descrizione)
            line += u"  "_s;
    }
    return line + u"\r\n"_s;
}

} // namespace

void WriteProjectDocuments(ProgramValues &values, const TextTable &overview)
{
    FrmElab form;
    form.listBox.text.clear();
    for (int row = 1; row < overview.rows(); ++row) {
        form.listBox.fontName = form.lastPaymentBox.fontName = u"Courier New"_s;
        form.listBox.text += overviewLine(overview, row);
    }
    SaveDocument(values, form.listBox, InternalCode::OverviewDocument);
    RegisterDocument(values, InternalCode::OverviewDocument);
    ScriviProspettoRtf(values, form);
}

} // namespace saldoro
