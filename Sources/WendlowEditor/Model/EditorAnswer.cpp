#include "Model/EditorAnswer.h"

#include <utility>

namespace wendlow {

EditorAnswer EditorAnswer::warming(EditorAsk ask) {
    return {.ask = std::move(ask), .state = EditorAnswerStateCase::Warming{}};
}

EditorAnswer EditorAnswer::failed(std::string words, EditorAsk ask) {
    return {.ask = std::move(ask), .state = EditorAnswerStateCase::Failed{std::move(words)}};
}

EditorAnswer EditorAnswer::awaitingRefresh() const {
    EditorAnswer same = *this;
    same.state = EditorAnswerStateCase::Pending{};
    return same;
}

} // namespace wendlow
