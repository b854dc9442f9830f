// "write FOLDER BYTES": exports a picture of so many bytes. "seed BUNDLE SUPPORT": seeds. "require
// NAME ROOT": looks for a bundle. Prints what came of it.

#include "ExportedScreens.h"
#include "ResourceBundle.h"
#include "SenkoSeed.h"

#include <fmt/format.h>

#include <string>
#include <vector>

using namespace wendlow;

int main(int count, char** words) {
    const std::vector<std::string> arguments(words + 1, words + count);
    if (arguments.at(0) == "write") {
        const std::string bytes(std::stoul(arguments.at(2)), 'p');
        const auto written = ExportedScreens(arguments.at(1)).write(bytes, 7, "A window");
        fmt::print("{}", written ? written->string() : written.error().description());
    } else if (arguments.at(0) == "require") {
        ResourceBundle::Surroundings here;
        here.executable = arguments.at(2) + "/tool";
        fmt::print("{}", ResourceBundle::require(arguments.at(1), here).folder().string());
    } else {
        constexpr const char* names[] = {"seeded", "bundle missing", "failed", "present"};
        const auto outcome = SenkoSeed::seed(arguments.at(1), arguments.at(2));
        const auto* const failed = std::get_if<SenkoSeed::Failed>(&outcome);
        fmt::print("{}", failed != nullptr ? failed->text : names[outcome.index()]);
    }
}
