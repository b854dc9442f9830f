// Commits changes from the command line, so that a test can do it on a faulty disk: "PATH=BYTES"
// writes, "PATH" alone removes. Prints the outcome, then a line per observation: subject, tab,
// text.

#include "ConfigFile/Disk.h"
#include "ConfigFile/Transaction.h"

#include <cstdio>
#include <fmt/format.h>
#include <span>
#include <string>
#include <vector>

using namespace wendlow;

int main(int count, char** arguments) {
    std::vector<FileChange> changes;
    for (const std::string argument :
         std::span(arguments, static_cast<std::size_t>(count)).subspan(1)) {
        const auto sign = argument.find('=');
        const auto path = argument.substr(0, sign);
        const auto before = Disk::read(path);
        if (!before) {
            fmt::print("unreadable\n");
            return 0;
        }
        changes.push_back(
            {path, path, *before,
             sign == std::string::npos ? std::nullopt : std::optional(argument.substr(sign + 1))});
    }
    const auto result = Transaction::commit(changes, std::chrono::system_clock::now());
    constexpr std::array names{"committed", "refused", "unchanged"};
    fmt::print("{}\n", names.at(result.outcome.index()));
    Observations observations;
    if (const auto* committed = std::get_if<TransactionResult::Committed>(&result.outcome))
        observations = committed->observations;
    else if (const auto* refused = std::get_if<TransactionResult::Refused>(&result.outcome))
        observations = refused->observations;
    for (const auto& said : observations)
        fmt::print("{}\t{}\n", said.subject, said.text);
    return 0;
}
