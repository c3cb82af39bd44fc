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

    /** Shows @p lines over @p control, from @p down pixels below its top and as wide as it, as high
     *  as they need as far as the form reaches, and takes the focus. */
    void open(const QStringList &lines, const QWidget &control, int down);

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
