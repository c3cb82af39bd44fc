#pragma once

namespace saldoro {

/** Lets every single write, flush, cut, opening and deletion of every work fail, once and for good,
 *  until a work passes untouched. Returns the number of faults; throws std::runtime_error. */
int TryStorageFaults();

/** A full disk, files and folders that accept no change, a database locked for the whole time-out,
 *  a document that can't be written. Returns the number of faults; throws std::runtime_error. */
int TrySystemFaults();

} // namespace saldoro
