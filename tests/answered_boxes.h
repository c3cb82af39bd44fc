#pragma once

#include "controls/message_box.h"

#include <QStringList>

namespace saldoro {

/** As long as one lives, message boxes are answered at once and their texts kept, those with a stop
 *  sign after a "!". */
class AnsweredBoxes
{
public:
    AnsweredBoxes()
        : m_before(ReplaceMessageBoxes([this](MessageKind kind, const QString &text) {
            messages += (kind == MessageKind::Critical ? QStringLiteral("!") : QString()) + text;
            return kind == MessageKind::Question && saysYes;
        }))
    {
    }
    ~AnsweredBoxes() { ReplaceMessageBoxes(m_before); }
    AnsweredBoxes(const AnsweredBoxes &) = delete;
    AnsweredBoxes &operator=(const AnsweredBoxes &) = delete;

    QStringList messages;
    /** To questions. */
    bool saysYes = false;

private:
    MessageAnswerer m_before;
};

} // namespace saldoro
