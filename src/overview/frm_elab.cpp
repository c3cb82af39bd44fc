#include "overview/frm_elab.h"

namespace saldoro {

using namespace Qt::StringLiterals;

FrmElab::FrmElab()
    : m_listBox(u"RichTextBox1"_s)
    , m_lastPaymentBox(u"RichTextBox2"_s)
{
}

void FrmElab::setFontName(const QString &name)
{
    m_listBox.setFontName(name);
    m_lastPaymentBox.setFontName(name);
}

} // namespace saldoro
