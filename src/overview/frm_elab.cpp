#include "overview/frm_elab.h"

#include "common/archive_folders.h"
#include "common/errors.h"
#include "store/code_lookups.h"

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** The suite's readers go by the item; they give the tag of these entries no meaning. */
constexpr qint16 registerTag = 0;

QString fileName(const ProgramValues &values, QStringView internalCode)
{
    return CodiceEsterno(values, internalCode) + u".rtf"_s;
}

} // namespace

FrmElab::FrmElab(const ProgramValues &values)
    : listBox(u"RichTextBox1"_s)
    , lastPaymentBox(u"RichTextBox2"_s)
    , m_values(values)
{
}

void FrmElab::setFontName(const QString &name)
{
    listBox.setFontName(name);
    lastPaymentBox.setFontName(name);
}

void FrmElab::save(const RichTextBox &box, QStringView internalCode) const
{
    box.saveFile(ProjectFolder(m_values) + u'\\' + fileName(m_values, internalCode));
}

void FrmElab::registerDocument(QStringView internalCode) const
{
    WithDetail(u"Codice"_s, internalCode.toString(), [&] {
        ScriviVoceFile(m_values, CodiceEsterno(m_values, internalCode), registerTag,
                       DescrizioneFunzione(m_values, internalCode),
                       fileName(m_values, internalCode));
    });
}

} // namespace saldoro
