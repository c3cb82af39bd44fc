#pragma once

#include <QListWidget>

namespace saldoro {

/**
 * A pick list that floats over its form until a line is chosen. A click or Enter picks, the arrows
 * move. It never closes by itself: whoever opened it closes it after a pick, and when it loses the
 * focus. A double click is one click: its rest does not reach what lay under the list.
 */
class PopupList : public QListWidget
{
    Q_OBJECT

public:
    explicit PopupList(QWidget *form);

    /** Shows @p lines at the top left corner of @p area (in the form's coordinates), as wide as it
     *  and as high as they need up to its height, and takes the focus. */
    void open(const QStringList &lines, const QRect &area);

signals:
    /** The list is done with: line @p row was picked, or none (-1) and Esc pressed. The focus is to
     *  be taken elsewhere. */
    void answered(int row);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool m_takesRest = false; ///< of a double click, until its release
};

} // namespace saldoro
