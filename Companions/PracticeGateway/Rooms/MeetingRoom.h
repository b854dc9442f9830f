#pragma once

#include <cstdint>
#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ControlRequest.h"
#include "DocumentStore.h"
#include "GatewayResponse.h"
#include "ReadRequest.h"

namespace wendlow {

/// A meeting beside its document, whose id, time and title it shares.
struct MeetingRecord {
    struct Line {
        std::string speaker; ///< empty for a voice without a name
        double at = 0;
        std::string text;
    };

    std::string id;  ///< "meeting:", the application, ":", a number
    std::string app; ///< as the id has it
    double start = 0;
    double end = 0;
    std::optional<std::string> title = std::nullopt;
    std::int64_t reelBytes = 0; ///< of its pictures
    std::vector<Line> lines;
};

/// What happens to a line right before it is deleted, as if somebody else had written meanwhile, so
/// that whoever deletes lines can be tried.
enum class LineManner {
    stay,
    change, ///< it says something else
    move,   ///< it says the same in another row
    go,
    twin, ///< it moves, and another one says the same
};
namespace LineManners {
/// Reads words with commas: "stay", "change", "move", "go", "twin". The unknown word is the error.
std::expected<std::vector<LineManner>, std::string> parse(std::string_view words);
} // namespace LineManners

/// The meetings and what was said in them. A line goes with a witness of its speaker, time and
/// words; only who holds the right one can delete it. Throws `DatabaseError`.
class MeetingRoom {
public:
    static std::string_view schema();

    explicit MeetingRoom(DocumentStore& documents);

    /// One line for each meeting that fits, the newest first: "- ", then id, span, duration, the
    /// title in double quotes where there is one, speakers, and the count of lines, with " · "
    /// between them.
    GatewayResponse answer(const ReadCase::MeetingList& request);
    /// The transcript to be read by a tool, with each line's time if asked for.
    GatewayResponse answer(const ReadCase::MeetingGet& request);
    /// A meeting that does not exist or has no lines is a failure that begins with "no transcript".
    GatewayResponse answer(const ReadCase::MeetingTranscript& request);
    /// A card for each line in which a word stands, of the meetings with all the words, the newest
    /// meeting first; 20 without a limit.
    GatewayResponse answer(const ReadCase::MeetingSearch& request);
    GatewayResponse answer(const ReadCase::MeetingStats& request);
    /// What was said at a time of the clock, "14:05", and in the minute after it.
    GatewayResponse answer(const ReadCase::MeetingAt& request);
    /// Nothing is ever being recorded here.
    GatewayResponse answer(const ReadCase::MeetingLive& request);
    GatewayResponse answer(const ControlCase::DeleteUtterance& request);

    /// What happens before the first delete, the second and so on; the last of them stays. From now
    /// on.
    void setManners(std::vector<LineManner> manners) { m_manners = std::move(manners); }

    /// Within a transaction: adds a meeting with its document.
    void put(const MeetingRecord& meeting, std::string_view scope);

private:
    struct Found {
        std::int64_t number = 0; ///< of its document
        MeetingRecord meeting;   ///< without lines
    };

    std::optional<Found> find(std::string_view id);
    std::vector<TranscriptLineRow> lines(std::int64_t number);
    void wordDocument(const Found& found);
    void meddle(const Found& found, std::int64_t row);

    DocumentStore& m_documents;
    Statement m_putLine;
    std::vector<LineManner> m_manners;
};

} // namespace wendlow
