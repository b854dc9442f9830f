#pragma once

#include "ConfigFile/Unreadable.h"
#include "Observation.h"
#include "OurPart.h"

#include <string>
#include <variant>
#include <vector>

namespace wendlow {

/// What one block of a connector says about one file.
struct BlockFinding {
    /// The file did not read.
    using Unreadable = wendlow::Unreadable;
    /// Our entry is there and differs.
    struct Drifted {
        std::vector<std::string> reasons;
        bool operator==(const Drifted&) const = default;
    };
    /// The file has a shape that leaves no place for our entry.
    struct Foreign {
        std::vector<std::string> reasons;
        bool operator==(const Foreign&) const = default;
    };
    /// There is no file.
    struct FileAbsent {
        bool operator==(const FileAbsent&) const = default;
    };
    /// The file reads and holds no entry of ours.
    struct Absent {
        bool operator==(const Absent&) const = default;
    };
    /// Our entry is there, exactly.
    struct Connected {
        bool operator==(const Connected&) const = default;
    };

    std::variant<Unreadable, Drifted, Foreign, FileAbsent, Absent, Connected> content;

    template<class Case> bool is() const { return std::holds_alternative<Case>(content); }
    /// Whether an entry of ours is there, exact or not.
    bool holdsOurs() const { return is<Drifted>() || is<Connected>(); }
    /// `Connected` where there are no reasons, otherwise `Drifted` with them.
    static BlockFinding from(std::vector<std::string> reasons);

    bool operator==(const BlockFinding&) const = default;
};

/// What a finding is about, for its sentences.
struct BlockSubject {
    std::string path; ///< as configured
    OurPart what = OurPart::hookEntry;
    std::string command;           ///< the command this build writes there
    const char* language = "JSON"; ///< what the file should have read as; said in sentences
};

/// The finding in words, one observation for each thing there is to say.
Observations observations(const BlockFinding& finding, const BlockSubject& subject);

} // namespace wendlow
