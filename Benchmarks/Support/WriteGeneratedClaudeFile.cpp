// WriteGeneratedClaudeFile short-histories|long-pastes MEGABYTES FILE

#include "Support/GeneratedClaudeFile.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string_view>

int main(int count, char** arguments) {
    using namespace wendlow::benchmarks;
    const auto argument = [&](int index) {
        return index < count ? std::string_view(arguments[index]) : std::string_view();
    };
    const bool pastes = argument(1) == "long-pastes";
    if (count != 4 || (!pastes && argument(1) != "short-histories")) {
        std::fputs("usage: WriteGeneratedClaudeFile short-histories|long-pastes MEGABYTES FILE\n",
                   stderr);
        return 2;
    }
    const auto kind = pastes ? ClaudeFileKind::longPastes : ClaudeFileKind::shortHistories;
    const auto text =
        generatedClaudeFile(kind, std::strtoull(arguments[2], nullptr, 10) * megabyte);
    std::ofstream file(arguments[3], std::ios::binary);
    file.write(text.data(), static_cast<std::streamsize>(text.size()));
    return file.flush().good() ? 0 : 1;
}
