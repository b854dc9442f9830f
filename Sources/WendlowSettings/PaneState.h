#pragma once

#include <string>
#include <utility>
#include <variant>

namespace wendlow {

/// A sentence shown in place of what a pane could not read.
struct UIError {
    std::string message;
    bool operator==(const UIError&) const = default;
};

namespace PaneCase {

/// Nothing has been answered yet.
struct Loading {
    bool operator==(const Loading&) const = default;
};
/// It was read, and there is nothing in it.
struct Empty {
    bool operator==(const Empty&) const = default;
};
template<class Content> struct Populated {
    Content content;
    bool operator==(const Populated&) const = default;
};

} // namespace PaneCase

/// How far a pane that asks the daemon has come. What was read once stays, whatever fails later.
template<class Content>
using PaneState =
    std::variant<PaneCase::Loading, PaneCase::Empty, UIError, PaneCase::Populated<Content>>;

namespace PaneStates {

/// Empty unless nothing could be read.
template<class Content> std::string error(const PaneState<Content>& state) {
    const auto* const error = std::get_if<UIError>(&state);
    return error == nullptr ? std::string() : error->message;
}

template<class Content> bool isLoading(const PaneState<Content>& state) {
    return std::holds_alternative<PaneCase::Loading>(state);
}

/// Null before anything has been read.
template<class Content> const Content* content(const PaneState<Content>& state) {
    const auto* const populated = std::get_if<PaneCase::Populated<Content>>(&state);
    return populated == nullptr ? nullptr : &populated->content;
}

template<class Content> bool isRead(const PaneState<Content>& state) {
    return content(state) != nullptr || std::holds_alternative<PaneCase::Empty>(state);
}

/// What could not be read is told only while nothing has been read.
template<class Content> void fail(PaneState<Content>& state, std::string message) {
    if (!isRead(state))
        state = UIError{std::move(message)};
}

} // namespace PaneStates

} // namespace wendlow
