#pragma once

#include "Codex/CodexMCP.h"
#include "Codex/CodexTrust.h"

#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace wendlow {

/// What a verb makes of Codex's configuration, once it is known what it makes of the hooks file:
/// the server's table and the hook's trust go in and out together. Each step works on what the one
/// before it left. No plan, where one of them did not read back as TOML.
class CodexConfigPlan {
public:
    /// What is to be known of the hooks file.
    struct Hooks {
        CodexTrust::IsKnown isKnown; ///< the hashes of entries that are ours or have been
        CodexTrust::IsLive isLive;   ///< where entries will stand
        TrustSlots receiptSlots;     ///< where we have recorded trust
    };
    struct Installed : CodexMCP::Installed {
        CodexTrust::Judgement judgement;
        TrustSlots trustSlots;    ///< where we have recorded trust, afterwards
        bool isHookOff = false;   ///< a person switched the hook off
        bool isServerOff = false; ///< a person switched the server off
    };
    struct Removed : RemovedBlock {
        CodexTrust::Judgement judgement;
    };

    CodexConfigPlan(const CodexMCP& mcp, const CodexTrust& trust, Hooks hooks);

    /// `document` is the scan of `bytes`. `landings` are the slots of the entry whose hash this is.
    std::optional<Installed> installed(std::string_view bytes, const TOMLDocument& document,
                                       const CodexTrust::Keys& landings,
                                       std::string_view hash) const;
    std::optional<Removed> removed(std::string_view bytes, const TOMLDocument& document,
                                   const std::set<Created>& created) const;
    CodexTrust::Judgement judge(const TOMLDocument& document,
                                const CodexTrust::Keys& occupied) const;

private:
    const CodexMCP& m_mcp;
    const CodexTrust& m_trust;
    Hooks m_hooks;
};

} // namespace wendlow
