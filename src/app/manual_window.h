#pragma once

#include <QTextBrowser>

namespace saldoro {

/** The headings of the chapters on the forms. */
namespace ManualChapter {
inline constexpr QStringView MainScreen = u"La schermata principale";
inline constexpr QStringView CompanyPayment = u"Pagamento a un'azienda";
inline constexpr QStringView ProfessionalPayment = u"Pagamento a un professionista";
} // namespace ManualChapter

/**
 * The manual, in a window above the forms, which stay usable. Esc closes it; it does not keep the
 * program running.
 */
class ManualWindow : public QTextBrowser
{
    Q_OBJECT

public:
    ManualWindow();

    /** Shows the manual at the chapter of that heading. */
    void showChapter(QStringView heading);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void goTo(const QString &anchor);
};

} // namespace saldoro
