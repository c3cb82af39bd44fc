#pragma once

#include "controls/notice.h"

#include <QLabel>
#include <QMap>
#include <QTimer>

#include <functional>

namespace saldoro {

/**
 * The lines of a form that tell what an odd rule is about to do. Their room is reserved, so nothing
 * moves when they change; they take no focus and change nothing of the form. The weightiest notice
 * comes first, of several the one about the control that has the focus; the last line also says how
 * many more there are. A control that a notice is about gets a bar at its left edge, and the text
 * in its description for screen readers, which are alerted to a new notice.
 */
class NoticeStrip : public QLabel
{
public:
    using Source = std::function<Notices()>;

    /** Where the first line is kept for what a typed text is worth. */
    enum class Worth
    {
        Shown,
        Left
    };

    /** Notices come from @p source, the controls they name are those of @p form. An exception of
     *  the source shows nothing and goes no further. */
    NoticeStrip(QWidget *form, Worth worth, Source source);

    /** Asks the source again once the events that wait now have been handled; asking for it many
     *  times costs no more than once. */
    void refreshSoon() { m_timer.start(); }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void refresh();
    void showLines(const QString &worth, const QList<Notice> &notices);
    void markFields(const QList<Notice> &notices);

    QWidget *m_form;
    Worth m_worth;
    Source m_source;
    QTimer m_timer;
    QMap<QString, QWidget *> m_bars; ///< by the object name of the control
};

} // namespace saldoro
