#pragma once

#include <QString>

#include <exception>

namespace saldoro {

/**
 * The Italian text that the user gets to read about an error that ends the program: the error's
 * own report. A missing database adds the folder that is missing and the place of the setting.
 * Faults that come from stored values (null, of the wrong type, a code with an apostrophe or not
 * mapped) add the command that checks the project. Errors that are not the program's own are named
 * unexpected.
 */
QString ErrorReport(const std::exception &error);

} // namespace saldoro
