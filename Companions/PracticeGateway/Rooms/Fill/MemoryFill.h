#pragma once

#include "Clock.h"
#include "DocumentStore.h"
#include "Fill/FillSize.h"
#include "ModRoom.h"

namespace wendlow {

/// What the rooms of memories, rules, scopes and mods hold in a database that is to be shown. Run
/// within a transaction, on empty tables.
class MemoryFill {
public:
    MemoryFill(DocumentStore& documents, ModRoom& mods, const Clock& clock);

    void fill(FillSize size);

private:
    void memories(std::uint64_t count, std::uint64_t days);
    void awkward();
    void rules();
    void folders();
    void mods();

    DocumentStore& m_documents;
    ModRoom& m_mods;
    double m_now;
};

} // namespace wendlow
