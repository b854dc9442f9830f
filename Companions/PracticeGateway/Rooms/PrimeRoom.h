#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Clock.h"
#include "DocumentStore.h"
#include "GatewayResponse.h"
#include "ReadRequest.h"
#include "ScopeRoom.h"

namespace wendlow {

/// What is told to an AI tool at a prompt: of the memories in its scope, below it and above it
/// those that have enough to do with the prompt. What a session has been told once it is not told
/// again.
class PrimeRoom {
public:
    static std::string_view schema();

    PrimeRoom(DocumentStore& documents, ScopeRoom& scopes, Clock clock);

    /// Three at most. Only a prompt that counts is remembered as told.
    GatewayResponse answer(const ReadCase::Primed& request);

private:
    /// What the words of a prompt say about a memory.
    struct Score {
        double weight = 0;
        int words = 0;
    };
    struct Found {
        std::int64_t number = 0;
        double weight = 0;
        double at = 0;
    };

    /// The memories that have enough to do with the prompt, the best first.
    std::vector<Found> relevant(std::string_view prompt, std::string_view scope);
    bool wasTold(const std::string& session, const std::string& memory);
    void tell(const std::string& session, const std::vector<PrimeCard>& cards);

    DocumentStore& m_documents;
    ScopeRoom& m_scopes;
    Clock m_clock;
    Statement m_matching;
    Statement m_told;
};

} // namespace wendlow
