#pragma once

#include <QListWidget>

namespace saldoro {

/**
 * A pick list that floats over its form. The arrows move, a click or Enter picks. The list never
 * closes by itself: whoever opened it closes it after a pick and when it loses the focus.
 */
class PopupList : public QListWidget
{
    Q_OBJECT

public:
    explicit PopupList(QWidget *form);

    /** Shows @p lines over @p control, its top @p down pixels below the control's top, and takes
     *  the focus. The list is as wide as the control and as high as its lines, if the form has
     *  room. Near the bottom of the form it stands higher, so as to get half the form's height.
     *  Without lines it has the room of one. */
    void open(const QStringList &lines, const QWidget &control, int down);

signals:
    /** Line @p row was picked, or Esc pressed (-1). The receiver moves the focus elsewhere. */
    void answered(int row);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void choose(const QListWidgetItem *line);
};

} // namespace saldoro
