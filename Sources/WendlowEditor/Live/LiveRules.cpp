#include "Live/LiveRules.h"

#include "Live/LiveWrite.h"

#include <utility>

#include <fmt/format.h>

namespace wendlow {

LiveRules::LiveRules(EditorLink& link, LivePages& pages, LiveTell tell)
    : m_link(link), m_pages(pages), m_tell(std::move(tell)) {}

QCoro::Task<EditorWriteOutcome> LiveRules::editRuleLine(std::string id, std::string from,
                                                        std::string to) {
    const Lifetime::Watch life = m_life.watch();
    const NotesRequest request = NotesCase::Patch{.id = std::move(id),
                                                  .field = "text",
                                                  .find = std::move(from),
                                                  .replace = std::move(to),
                                                  .replaceAll = false};
    EditorWriteOutcome outcome = co_await LiveWrite::send(m_link, request);
    if (outcome.ok() && !life.expired())
        m_tell(EditorChange::generation);
    co_return outcome;
}

QCoro::Task<EditorWriteOutcome> LiveRules::addRule(std::string text, std::string why,
                                                   EditorRulePlacement placement,
                                                   std::string scope) {
    const Lifetime::Watch life = m_life.watch();
    if (!placement.isLegal())
        co_return EditorWriteOutcome::refused(fmt::format(
            "“{}” isn’t a legal rules-file name: one lowercase word, letters, digits and dashes, "
            "no leading or trailing dash, and not one of the reserved words. It becomes a filename "
            "and a card attribute.",
            *placement.file));
    NotesCase::Write note{.text = std::move(text),
                          .why = std::move(why),
                          .writer = "wendlow-editor",
                          .type = "rule",
                          .path = std::move(scope)};
    for (const auto& [key, value] : placement.filters()) {
        if (!note.filters)
            note.filters.emplace();
        note.filters->emplace(key, value);
    }
    EditorWriteOutcome outcome = co_await LiveWrite::send(m_link, std::move(note));
    if (outcome.ok() && !life.expired()) {
        m_tell(EditorChange::generation);
        co_await m_pages.baseline();
    }
    co_return outcome;
}

} // namespace wendlow
