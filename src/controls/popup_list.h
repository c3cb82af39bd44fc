#pragma once

#include <QListWidget>

namespace saldoro {

/**
 * A pick list that floats over its form until a line is chosen. A click or Enter picks, the arrows
 * move. It never closes by itself: whoever opened it closes it after a pick, and when it loses the
 * focus.
 */
class PopupList : public QListWidget
{
    Q_OBJECT

public:
    explicit PopupList(QWidget *form);

    /** Shows @p lines over @p control, from @p down pixels below its top, as wide as it and as high
     *  as they need, as far as the form has room, and takes the focus. Without lines it says so in
     *  one that can't be picked. */
    void open(const QStringList &lines, const QWidget &control, int down);

signals:
    /** The list is done with: line @p row was picked, or none (-1) and Esc pressed. The focus is to
     *  be taken elsewhere. */
    void answered(int row);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void choose(const QListWidgetItem *line);
};

} // namespace saldoro
