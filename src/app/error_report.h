#pragma once

#include <QString>

#include <exception>

namespace saldoro {

/**
 * The Italian text for the user about an error that ends the program: the error's own report. For
 * a missing database it adds the folder that is missing, if one is, and the place of the setting;
 * for faults that come from stored values (a null, a wrong type, a code with an apostrophe or not
 * mapped), the command that checks the project. Errors that are not the program's own are called
 * unexpected.
 */
QString ErrorReport(const std::exception &error);

} // namespace saldoro
