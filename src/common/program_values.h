#pragma once

#include "common/currency.h"

#include <QString>

namespace saldoro {

/** What precedes the project's code on the command line when the suite starts this program. */
inline constexpr QStringView LaunchToken = u"TUSMQDE7W";

/** The project that the program opens when it is started without one. */
inline constexpr QStringView DefaultProject = u"00039";

/** The values that live for a whole run and are shared by its parts; passed in, never global. The
 *  office's window makes them for one contract at a time, to ask for its databases. */
struct ProgramValues
{
    // Written once, by Saldoro's start-up (app/start_up).

    /** In front of every archive path; no trailing backslash; may be empty. */
    QString ArchiveRoot;
    /** Code of the contract project, exactly as it was given; its folder has this name. */
    QString ProjectCode;
    /** The program's own build text, e.g. 10167. */
    QString ProgramBuild;

    // Written again and again.

    /** The payment that an invoice form is for when it is loaded next, new or not. Written before
     *  the main screen asks for a form (overview/frm_principale,
     *  overview/payment_opening_and_deletion). */
    qint32 CurrentPaymentNumber = 0;
    /** Mandate note composed by the last save of an invoice form (invoice/payment_save). */
    QString MandateText;
    /** Statement of the payment that was composed last (overview/payment_statement). */
    QString TestoPagamento;
    /** Running sum of the payments of one kind (overview/payment_statement), set back before each
     *  kind (overview/closing_work). */
    Currency TotaleLiquidato;
};

} // namespace saldoro
