#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace wendlow {

class Connector;

/// What a tool's files were before the journey plugged the tool in: so that where a cancel has
/// taken our entries out again and the bytes are the old ones, what is left of the verbs beside the
/// bytes goes too. These are the copies that they made, and the times of the files and their
/// folders. Where a person or the tool has written in between, all stays as the connector leaves
/// it.
///
/// Each is called in the tool's turn, off the UI thread, and blocks. No link is followed below the
/// home folder, and nothing is touched that the connector does not name. What is empty is left out.
struct ToolsBefore {
    using Step = std::function<void(const Connector&)>;

    /// Writes down what the files are, unless that was done already and they still are that.
    Step beforeConnect;
    /// Writes down what they have become.
    Step afterConnect;
    /// Behind the removal, if there was anything to remove. The note goes.
    Step putBack;

    struct Places {
        std::filesystem::path home;
        std::filesystem::path support; ///< the product's own folder
    };
    /// On this machine's disk. `log` is called on any thread.
    static ToolsBefore onDisk(const Places& places,
                              const std::function<void(const std::string& line)>& log);
};

} // namespace wendlow
