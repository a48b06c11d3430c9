#pragma once

#include <string>

namespace tollvane {

/// What the running executable knows about itself.
class ProgramFacts {
public:
    virtual ~ProgramFacts() = default;

    /// Base name of the executable without extension.
    virtual std::string exeName() = 0;
    /// Product name of the version resource.
    virtual std::string productName() = 0;
    /// Everything after the executable's name; empty when there is nothing.
    virtual std::string commandLine() = 0;
    /// True when this program already ran when it was started. Asking claims the place.
    virtual bool anotherInstanceRuns() = 0;
    /// An entry of the string table; raises 326 when there is none.
    virtual std::string resourceString(unsigned id) = 0;
};

} // namespace tollvane
