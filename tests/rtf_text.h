#pragma once

#include <QByteArray>
#include <QString>

#include <random>

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

/** The text as a reader is to give it back: LF for every kind of line break, no NUL, U+FFFD for
 *  half a pair. */
QString MeantText(const QString &text);

/** A text of @p parts pieces that are apt to trip a writer or a reader. */
QString HostileText(std::mt19937 &random, int parts);

} // namespace saldoro
