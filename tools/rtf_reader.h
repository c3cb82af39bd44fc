#pragma once

#include <QByteArray>
#include <QString>

namespace saldoro {

/** What a document says. */
struct RtfContent
{
    QString text; ///< line breaks are LF
    QString font;
    bool fixedPitch = false;
};

/** Reads a document strictly, apart from the writer's own code: a byte beyond ASCII, a control
 *  word that plain text does not need or a group left open throws std::runtime_error. The last
 *  \par ends its line, as word processors have it. */
RtfContent ReadRtf(const QByteArray &rtf);

} // namespace saldoro
