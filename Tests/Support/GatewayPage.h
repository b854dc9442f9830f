#pragma once

#include <fstream>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace wendlow::testing {

/// What docs/gateway.md says, taken apart: the tables under each heading of the third level, and
/// the examples.
class GatewayPage {
public:
    using Row = std::vector<std::string>; ///< cells

    explicit GatewayPage(const std::string& path = WENDLOW_GATEWAY_PAGE) {
        std::ifstream page(path);
        std::string heading, line, kind;
        while (std::getline(page, line)) {
            if (!kind.empty()) {
                if (line != "```")
                    m_examples[kind].push_back(line);
                else
                    kind.clear();
            } else if (line.starts_with("```json ")) {
                kind = line.substr(8);
            } else if (line.starts_with("### ")) {
                heading = line.substr(4);
            } else if (line.starts_with("| `")) {
                m_tables[heading].push_back(cells(line));
            }
        }
        if (m_tables.empty() || m_examples.empty())
            throw std::runtime_error("this page holds nothing: " + path);
    }

    const std::vector<Row>& table(const std::string& heading) const { return m_tables.at(heading); }
    /// Of the kind "request", "answer" or "event".
    const std::vector<std::string>& examples(const std::string& kind) const {
        return m_examples.at(kind);
    }

    static std::string unquoted(std::string_view cell) {
        if (cell.size() > 1 && cell.starts_with('`') && cell.ends_with('`'))
            cell = cell.substr(1, cell.size() - 2);
        return std::string(cell);
    }

private:
    static Row cells(std::string_view line) {
        Row cells;
        line.remove_prefix(2);
        while (!line.empty()) {
            const auto end = line.find('|');
            std::string_view cell = line.substr(0, end);
            line.remove_prefix(std::min(end + 2, line.size()));
            while (cell.ends_with(' '))
                cell.remove_suffix(1);
            cells.emplace_back(cell);
        }
        return cells;
    }

    std::map<std::string, std::vector<Row>> m_tables;
    std::map<std::string, std::vector<std::string>> m_examples;
};

} // namespace wendlow::testing
