#pragma once

#include <QList>
#include <QString>

namespace saldoro {

/** How much a notice matters; a strip shows the weightiest first. */
enum class NoticeWeight
{
    Remark,  ///< worth knowing
    Caution, ///< an amount or a choice is probably not what is meant
    Danger   ///< something will be lost, or counted many times over
};

/** Something that a form tells about its content. */
struct Notice
{
    NoticeWeight weight = NoticeWeight::Remark;
    /** One line of some 90 characters: the effect, in the figures on screen, and the way out. */
    QString text;
    /** Object name of the control it is about; may be empty. */
    QString field = {};
};

/** All that a strip shows at one time. */
struct Notices
{
    QList<Notice> list = {};
    /** What the text that is being typed is worth; empty while none is typed. */
    QString worth = {};

    void tell(NoticeWeight weight, const QString &field, const QString &text)
    {
        list.append({weight, text, field});
    }
};

} // namespace saldoro
