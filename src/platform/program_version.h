#pragma once

#include <optional>

namespace saldoro {

/** A program's version, its parts as plain numbers. */
struct ProgramVersion
{
    int major = 0;
    int minor = 0;
    int revision = 0;

    bool operator==(const ProgramVersion &) const = default;
};

/** The version that the running program's own file carries as a resource; no value for a program
 *  without one, and where files carry none. Needs the application object. Throws nothing. */
std::optional<ProgramVersion> VersionResource();

} // namespace saldoro
