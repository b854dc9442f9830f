#pragma once

#include "Memories/MemoryFaceModel.h"
#include "Shell/EditorRoot.h"
#include "Support/ScriptedStore.h"

namespace wendlow::testing {

/// The window's models over a store that answers when it is told to.
struct ScriptedWindow {
    ScriptedStore store;
    EditorRoot root{store};
    MemoryFaceModel& face = static_cast<MemoryFaceModel&>(root.model(EditorFace::memory));
    MemoriesModel& list = *face.list();

    /// The store has answered the first question.
    explicit ScriptedWindow(EditorMemoryHits rows = {}, std::vector<EditorCount> types = {}) {
        store.page.types = std::move(types);
        store.page.settle(std::move(rows));
    }
    const EditorAnswer& answer() { return root.page().answer(); }
    std::size_t rows() { return answer().rows.size(); }
    bool pending() {
        return std::holds_alternative<EditorAnswerStateCase::Pending>(answer().state);
    }
    EditorAsk ask(const std::function<void(EditorAsk&)>& change) {
        EditorAsk next = root.page().ask();
        change(next);
        return next;
    }
    void search(const char* term, EditorMemoryHits found) {
        root.search()->setText(QString::fromUtf8(term));
        store.page.settle(std::move(found));
        store.page.settle();
    }
    QString trouble() const { return root.openFace()->property("trouble").toString(); }
};

} // namespace wendlow::testing
