#include "Pane.h"

namespace wendlow::Panes {

std::string_view title(Pane pane) {
    switch (pane) {
    case Pane::privacy:
        return "General";
    case Pane::recording:
        return "Recording Control";
    case Pane::connected:
        return "Connected Apps";
    case Pane::classifier:
        return "Local AI Classifier";
    case Pane::recovery:
        return "Recovery";
    }
    return {};
}

std::string_view icon(Pane pane) {
    switch (pane) {
    case Pane::privacy:
        return "slider.horizontal.3";
    case Pane::recording:
        return "record.circle";
    case Pane::connected:
        return "powerplug";
    case Pane::classifier:
        return "cpu.fill";
    case Pane::recovery:
        return "key.fill";
    }
    return {};
}

std::optional<Pane> fromTitle(std::string_view text) {
    for (const Pane pane : all) {
        if (title(pane) == text)
            return pane;
    }
    return std::nullopt;
}

const std::vector<std::vector<Pane>>& groups() {
    static const std::vector<std::vector<Pane>> grouped = {
        {Pane::privacy, Pane::connected, Pane::recording},
        {Pane::classifier, Pane::recovery},
    };
    return grouped;
}

} // namespace wendlow::Panes
