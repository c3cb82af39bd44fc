#pragma once

#include "app/form_flow.h"

#include <QString>
#include <QTextStream>

#include <optional>

class QWidget;

namespace saldoro {

class TextTable;

/**
 * Opens the program's windows one after the other as a user would, saves a picture of each, and
 * prints what they show and what closing the main form has written. Needs no display.
 */
class DemoTour
{
public:
    /** @p forms shows the main form already; pictures go to @p pictureFolder, a machine path. */
    DemoTour(const ProgramValues &values, FormFlow &forms, QString pictureFolder);

    /** Stops early once the program is on its way out after an error. Throws SaldoroError. */
    void run();

private:
    void openPayment(CreditorKind kind, const QString &pictureName);
    void openNew(CreditorKind kind, const QString &pictureName);
    void picture(QWidget *form, const QString &name);
    std::optional<int> rowOf(CreditorKind kind) const;
    TextTable &paymentsList() const;
    void printTable(const QString &heading, const TextTable &table, const QList<int> &amounts);
    void printDocuments();
    void printTotals();

    const ProgramValues &m_values;
    FormFlow &m_forms;
    QString m_pictureFolder;
    QTextStream m_output;
};

} // namespace saldoro
