#pragma once

#include "app/form_wiring.h"
#include "controls/text_table.h"
#include "invoice/invoice_form.h"

#include <QJsonObject>

#include <random>

namespace saldoro {

/**
 * Plays a random session on the real forms by keys and clicks: new payments of both kinds, changes,
 * deletions, and at the end "Chiudi". Says on standard output, one JSON object a line and past any
 * buffer, what it is about to confirm (see session_model.h) and, once that has returned,
 * {"done":true}.
 */
class SessionPlayer
{
public:
    SessionPlayer(FormWiring &forms, quint32 seed, int steps);

    /** To be called once the main form is shown. */
    void play();

    /** Writes one line to standard output. */
    static void say(const QJsonObject &line);

private:
    int below(int limit) { return static_cast<int>(m_random() % static_cast<quint32>(limit)); }
    TextTable &list() const;
    void confirm(QWidget &form, const QString &button, const QJsonObject &step);

    void enterNew();
    void openListed();
    void removeListed();

    InvoiceForm *openForm() const;
    void fill(InvoiceForm &form);
    void allocate(InvoiceForm &form);
    void unallocate(InvoiceForm &form);
    void leave(InvoiceForm &form);
    QString amount();
    QString date();

    FormWiring &m_forms;
    std::mt19937 m_random;
    int m_steps;
};

} // namespace saldoro
