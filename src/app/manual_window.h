#pragma once

#include <QTextBrowser>

namespace saldoro {

/**
 * The manual, in a window that stays above the forms while they can be used. Esc closes it; it does
 * not keep the program running.
 */
class ManualWindow : public QTextBrowser
{
    Q_OBJECT

public:
    ManualWindow();

    /** Shows the manual at the chapter of that heading. */
    void showChapter(const QString &heading);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void goTo(const QString &anchor);
};

} // namespace saldoro
