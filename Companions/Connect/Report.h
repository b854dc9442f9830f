#pragma once

#include "Connector.h"

#include "ConfigFile/JSONLiteral.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wendlow::connect {

/// What was learnt of each tool, both as lines for people and as one JSON array.
class Report {
public:
    void add(const ScanReport& scan);
    /// `id`: nothing where a repair is reported, which has no id.
    void add(const std::optional<std::string>& id, const std::string& name,
             const ConnectorOutcome& outcome);
    void add(const ConnectorIdentity& identity, const ProjectReport& projects);
    void add(const ConnectorIdentity& identity, const MemoryFileReport& memory);
    void add(const ConnectorIdentity& identity, bool stale);
    /// A line for people about there being nothing to report.
    void remark(std::string_view sentence);

    /// Under each tool's name one indented line for each thing there is to say.
    const std::string& lines() const { return m_lines; }
    std::string json() const;

private:
    void head(const std::string& name, std::string_view status);
    void line(const std::string& text);
    void lines(const Observations& observations);

    std::string m_lines;
    JSONLiteral::Array m_elements;
};

} // namespace wendlow::connect
