#pragma once

#include <array>
#include <optional>
#include <string_view>
#include <vector>

namespace wendlow {

/// A pane of the Settings window. The raw text is the pane's title in the sidebar.
enum class Pane { privacy, recording, connected, classifier, recovery };

namespace Panes {

/// In case order.
inline constexpr std::array all = {Pane::privacy, Pane::recording, Pane::connected,
                                   Pane::classifier, Pane::recovery};

std::string_view title(Pane pane);
/// The symbol in the sidebar, a name of the icon table.
std::string_view icon(Pane pane);
/// The pane of a title; nothing for any other text.
std::optional<Pane> fromTitle(std::string_view title);
/// As the sidebar shows them, group by group. Not case order, on purpose.
const std::vector<std::vector<Pane>>& groups();

} // namespace Panes

} // namespace wendlow
