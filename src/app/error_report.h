#pragma once

#include <QString>

#include <exception>

namespace saldoro {

/**
 * The Italian text that the user gets to read about an error that ends the program: the error's
 * own report; for a missing database also the folder that is missing and the place of the setting,
 * and for values that are missing or of the wrong type the command that checks the ledger. Errors
 * that are not the program's own are named unexpected.
 */
QString ErrorReport(const std::exception &error);

} // namespace saldoro
