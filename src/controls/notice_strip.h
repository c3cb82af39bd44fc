#pragma once

#include "controls/notice.h"

#include <QLabel>
#include <QMap>
#include <QTimer>

#include <functional>

namespace saldoro {

/**
 * The lines of a form that tell what an odd rule is about to do. Their room is reserved, so nothing
 * moves when they change; they take no focus and change nothing else of the form. The weightiest
 * notice comes first, among equals the one about the control that has the focus; the last line also
 * says how many more there are. A control that a notice is about gets a bar at its left edge and
 * the notice in its description for screen readers, which are alerted to a new one.
 */
class NoticeStrip : public QLabel
{
public:
    using Source = std::function<Notices()>;

    /** Whether the first line is kept for what a typed text is worth. */
    enum class Worth
    {
        Shown,
        Hidden
    };

    /** @param source gives the notices; the controls they name are those of @p form. An exception
     *  of it ends here: no notice is shown then. */
    NoticeStrip(QWidget *form, Worth worth, Source source);

    /** Asks the source once the events that are waiting have been handled. Many calls before that
     *  cost as much as one. */
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
