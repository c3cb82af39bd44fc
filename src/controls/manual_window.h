#pragma once

#include <QTextBrowser>

namespace saldoro {

/** The headings of the chapters on the forms of both programs. */
namespace ManualChapter {
inline constexpr QStringView MainScreen = u"La schermata principale";
inline constexpr QStringView CompanyPayment = u"Pagamento a un'azienda";
inline constexpr QStringView ProfessionalPayment = u"Pagamento a un professionista";
inline constexpr QStringView Contracts = u"L'elenco degli appalti";
inline constexpr QStringView PastedItems = u"Copiare, incollare, creare";
inline constexpr QStringView Check = u"Controllo degli archivi";
} // namespace ManualChapter

/**
 * The manual, in a window of its own beside the forms, which stay usable. F1 shows it at the
 * chapter of the form. Esc closes it; it does not keep the program running.
 */
class ManualWindow : public QTextBrowser
{
    Q_OBJECT

public:
    /** Reads nothing yet. The program has the manual among its resources. */
    ManualWindow();

    /** Lets F1 in @p form, which may go first, show the chapter of that heading. */
    void offerIn(QWidget &form, QStringView heading);
    void showChapter(QStringView heading);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void goTo(const QString &anchor);
};

} // namespace saldoro
