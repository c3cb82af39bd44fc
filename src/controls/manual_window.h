#pragma once

#include <QStringView>

#include <memory>

class QTextBrowser;
class QWidget;

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
 * The manual of a program, in a window of its own beside the forms, which stay usable. Esc closes
 * it; it does not keep the program running. The window is made when it is first asked for, since a
 * start would take a tenth longer with it. The program has the manual among its resources.
 */
class ManualWindow
{
public:
    ManualWindow();
    ~ManualWindow();

    /** Lets F1 in @p form show the chapter of that heading. This object must live as long as the
     *  form is used. */
    void offerIn(QWidget &form, QStringView heading);
    /** Shows that chapter to the user of @p form: above other windows if the form stays there. */
    void showChapter(const QWidget &form, QStringView heading);

private:
    std::unique_ptr<QTextBrowser> m_browser; ///< null until it is asked for
};

} // namespace saldoro
