#include "HookCommand.h"

#include "BundleCommand.h"
#include "ConfigFile/JSONLiteral.h"
#include "ConfigFile/JSONText.h"
#include "OwnedNames.h"
#include "Say.h"

#include <algorithm>

namespace wendlow {

std::string_view text(HookOwnership ownership) {
    return ownership == HookOwnership::current ? "current" : "stale";
}

namespace HookCommand {

std::vector<std::string> spellings(std::string_view command) {
    std::vector<std::string> known{std::string(command)};
    for (const std::string_view flag : {"--harness ", "--slot "}) {
        std::vector<std::string> both;
        for (std::string& spelling : known) {
            const std::size_t at = spelling.rfind(flag);
            both.push_back(spelling);
            if (at == std::string::npos)
                continue;
            spelling[at + flag.size() - 1] = '=';
            both.push_back(std::move(spelling));
        }
        known = std::move(both);
    }
    return known;
}

bool isSpelling(std::string_view command, std::string_view current) {
    // They are all of one length, which tells most commands apart from the current one.
    return command == current || (command.size() == current.size() &&
                                  std::ranges::count(spellings(current), command) > 0);
}

std::optional<HookOwnership> tier(std::string_view command, std::span<const std::string> currents) {
    for (const std::string& current : currents)
        if (isSpelling(command, current))
            return HookOwnership::current;
    if (isLegacyScript(command))
        return HookOwnership::stale;
    const auto first = std::ranges::find_if(currents, [](const std::string& current) {
        return BundleCommand::harness(current).has_value();
    });
    if (first != currents.end() && isLegacyBundle(command, *first))
        return HookOwnership::stale;
    return std::nullopt;
}

std::optional<std::filesystem::path> legacyScriptPath(std::string_view command) {
    constexpr std::string_view interpreter = "python3 ";
    if (!command.starts_with(interpreter))
        return std::nullopt;
    const std::string_view rest = command.substr(interpreter.size());
    if (!rest.starts_with('/') || rest.contains(' '))
        return std::nullopt;
    std::filesystem::path script(rest);
    if (!script.parent_path().string().ends_with("/fenmoor/wendlow/Scripts"))
        return std::nullopt;
    return script;
}

bool isLegacyScript(std::string_view command) {
    const auto script = legacyScriptPath(command);
    const std::string name = script ? script->filename().string() : "";
    return name == "wendlow-hook.py" || name == "rules-hook.py" || name == "prime-hook.py";
}

bool isLegacyBundle(std::string_view command, std::string_view current) {
    const auto harness = BundleCommand::harness(current);
    if (!harness)
        return false;
    const auto executable = BundleCommand::hookExecutable(command, *harness);
    return executable && BundleCommand::names(*executable, OwnedNames::hookProgram);
}

bool isPreTool(std::string_view command) {
    return command.ends_with(" --slot pretool") || command.ends_with(" --slot=pretool");
}

std::optional<std::string> unusableReason(const std::filesystem::path& executable) {
    const std::string text = executable.string();
    const auto plain = [](char byte) {
        const auto code = static_cast<unsigned char>(byte);
        return code > ' ' && code != 0x7F &&
               !std::string_view("\"'\\`$&|;<>()*?[]{}#!~").contains(byte);
    };
    // Bytes that are not UTF-8 would make a file that no longer reads as JSON.
    const std::string quoted = JSONLiteral::quote(text);
    const auto written = JSONText::scanWithTrivia(quoted, JSONDialect::json);
    if (std::ranges::all_of(text, plain) && written && written->root().string() == text)
        return std::nullopt;
    return say("this path holds a space or another character that a hook command cannot carry, so "
               "nothing was written");
}

} // namespace HookCommand
} // namespace wendlow
