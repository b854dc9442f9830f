#include "Codex/CodexHookIdentity.h"

#include "ConfigFile/JSONLiteral.h"

#include <array>
#include <map>

#include <fmt/ranges.h>
#include <sodium.h>

namespace wendlow {

std::vector<CodexHookIdentity>
CodexHookIdentity::legacyIdentities(const std::filesystem::path& scriptsDirectory,
                                    std::int64_t timeout) {
    const auto of = [&](const char* script, const char* statusMessage) {
        return CodexHookIdentity{.command = "python3 " + (scriptsDirectory / script).string(),
                                 .statusMessage = statusMessage,
                                 .timeout = timeout,
                                 .matcher = {},
                                 .isAsync = false,
                                 .additionalContextLimit = {}};
    };
    return {of("rules-hook.py", "Loading Wendlow rules"),
            of("prime-hook.py", "Loading Wendlow memory"),
            of("wendlow-hook.py", "Loading Wendlow rules and memory")};
}

std::string CodexHookIdentity::canonicalJSON() const {
    const auto quote = JSONLiteral::quote;
    std::map<std::string_view, std::string> fields{
        {"async", isAsync ? "true" : "false"},
        {"command", quote(command)},
        {"timeout", std::to_string(timeout)},
        {"type", quote("command")},
    };
    if (additionalContextLimit)
        fields["additionalContextLimit"] = std::to_string(*additionalContextLimit);
    if (statusMessage)
        fields["statusMessage"] = quote(*statusMessage);

    std::vector<std::string> pairs;
    pairs.reserve(fields.size());
    for (const auto& [key, value] : fields)
        pairs.push_back(quote(key) + ":" + value);
    return fmt::format(R"({{"event_name":{},"hooks":[{{{}}}]{}}})", quote("user_prompt_submit"),
                       fmt::join(pairs, ","), matcher ? R"(,"matcher":)" + quote(*matcher) : "");
}

std::string CodexHookIdentity::trustedHash() const {
    const std::string text = canonicalJSON();
    std::array<unsigned char, crypto_hash_sha256_BYTES> hash{};
    crypto_hash_sha256(hash.data(), reinterpret_cast<const unsigned char*>(text.data()),
                       text.size());
    return fmt::format("sha256:{:02x}", fmt::join(hash, ""));
}

} // namespace wendlow
