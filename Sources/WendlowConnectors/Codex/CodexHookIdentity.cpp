#include "Codex/CodexHookIdentity.h"

#include "ConfigFile/JSONLiteral.h"

#include <algorithm>
#include <array>

#include <sodium.h>

namespace wendlow {

std::vector<CodexHookIdentity>
CodexHookIdentity::legacyIdentities(const std::filesystem::path& scriptsDirectory,
                                    std::int64_t timeout) {
    const auto of = [&](const char* script, const char* statusMessage) {
        return CodexHookIdentity{.command = "python3 " + (scriptsDirectory / script).string(),
                                 .statusMessage = statusMessage,
                                 .timeout = timeout,
                                 .isAsync = false,
                                 .additionalContextLimit = {}};
    };
    return {of("rules-hook.py", "Loading Wendlow rules"),
            of("prime-hook.py", "Loading Wendlow memory"),
            of("wendlow-hook.py", "Loading Wendlow rules and memory")};
}

std::int64_t CodexHookIdentity::hashedTimeout(std::optional<std::int64_t> stated) {
    constexpr std::int64_t usual = 600;
    constexpr std::int64_t shortest = 1;
    return std::max(shortest, stated.value_or(usual));
}

std::string CodexHookIdentity::canonicalJSON() const {
    const auto quote = JSONLiteral::quote;
    std::string text = R"({"event_name":"user_prompt_submit","hooks":[{)";
    if (additionalContextLimit)
        text += R"("additionalContextLimit":)" + std::to_string(*additionalContextLimit) + ',';
    text += isAsync ? R"("async":true)" : R"("async":false)";
    text += R"(,"command":)" + quote(command);
    if (statusMessage)
        text += R"(,"statusMessage":)" + quote(*statusMessage);
    text += R"(,"timeout":)" + std::to_string(timeout) + R"(,"type":"command"}]})";
    return text;
}

std::string CodexHookIdentity::trustedHash() const {
    const std::string text = canonicalJSON();
    std::array<unsigned char, crypto_hash_sha256_BYTES> hash{};
    crypto_hash_sha256(hash.data(), reinterpret_cast<const unsigned char*>(text.data()),
                       text.size());
    std::array<char, 2 * crypto_hash_sha256_BYTES + 1> digits{};
    return std::string("sha256:") +
           sodium_bin2hex(digits.data(), digits.size(), hash.data(), hash.size());
}

} // namespace wendlow
