#include "overview/frm_elab.h"

namespace saldoro {

FrmElab::FrmElab()
    : m_listBox(QStringLiteral("RichTextBox1"))
    , m_lastPaymentBox(QStringLiteral("RichTextBox2"))
{
}

void FrmElab::setFontName(const QString &name)
{
    m_listBox.setFontName(name);
    m_lastPaymentBox.setFontName(name);
}

} // namespace saldoro
