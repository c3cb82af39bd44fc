#pragma once

#include <QTextBrowser>

namespace saldoro {

/**
 * The manual, in a window of its own that stays above the other forms and stops none of them. Esc
 * closes it; it does not keep the program running.
 */
class ManualWindow : public QTextBrowser
{
    Q_OBJECT

public:
    ManualWindow();

    /** Shows the manual from the chapter of that heading on. */
    void showChapter(const QString &heading);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void goTo(const QString &anchor);
};

} // namespace saldoro
