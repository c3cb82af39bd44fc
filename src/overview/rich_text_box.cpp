#include "overview/rich_text_box.h"

#include "overview/rtf_writer.h"
#include "platform/whole_file.h"

namespace saldoro {

using namespace Qt::StringLiterals;

RichTextBox::RichTextBox(const QString &name)
    : m_text(name)
    , m_fontName(u"MS Sans Serif"_s)
{
}

void RichTextBox::saveFile(const QString &path) const
{
    WholeFile(path, [this](QIODevice &file) {
        return WriteRtf(file, m_text, m_fontName);
    }).replace();
}

} // namespace saldoro
