#pragma once

#include <QPushButton>
#include <QString>

namespace saldoro {

/**
 * A button that acts at once when its mnemonic is typed. The toolkit's first shows itself pressed
 * for a tenth of a second, and what a quick typist writes meanwhile still goes to the old field.
 * A key that is held down presses it once: the next button may be another form's. While a message
 * box waits for its answer, screen readers can't press the buttons of other windows either.
 */
class PromptButton : public QPushButton
{
    Q_OBJECT

public:
    /** @param caption with the mnemonic's "&". Enter presses the button while it has the focus. */
    PromptButton(const QString &objectName, const QString &caption, const QString &hint,
                 QWidget *parent = nullptr);

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
};

} // namespace saldoro
