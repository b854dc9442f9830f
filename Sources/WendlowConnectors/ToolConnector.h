#pragma once

#include "Connector.h"
#include "ConnectorVerb.h"
#include "ScanJoin.h"

#include <expected>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wendlow {

/// Who a tool is, and what there is to know of it before its files are read.
struct Tool {
    ConnectorIdentity identity;
    std::filesystem::path directory; ///< the tool's own folder
    /// Files that show without the folder that the tool is here. The first is spoken of.
    std::vector<std::filesystem::path> shownBy;
    std::vector<std::filesystem::path> files; ///< what verbs may change
    std::filesystem::path receiptFile;
    /// What a shell of the tool's runs, where we write its path into a command line.
    std::optional<std::filesystem::path> hookBinary;

    bool isHere() const;
};

/// A tool's files as they are at one moment, each read once, and what is to be made of them. Serves
/// one scan or one verb.
class ToolLook {
public:
    enum class Verb { install, remove };
    template<class Plan> using Planned = std::expected<Plan, Observations>;

    virtual ~ToolLook() = default;

    virtual ScanJoin::Findings findings() const = 0;
    /// Why a verb has to leave the files alone; empty: it has not.
    virtual Observations refusal(Verb verb) const = 0;
    /// What the verb would do, or why it does nothing. Moves the files' bytes; nothing is asked
    /// afterwards.
    virtual Planned<ConnectorVerb::Installation> installation() = 0;
    virtual Planned<ConnectorVerb::Removal> removal() = 0;
    /// Whether all that runs is this very installation's, so that it may be repaired unasked.
    virtual bool isThisInstallations() const = 0;

    /// Read when it is first asked for, and once.
    const ConnectorReceipt& receipt() const;

protected:
    explicit ToolLook(const std::filesystem::path& receiptFile) : m_receipts{receiptFile} {}

    /// Those that are there, in this order.
    static Observations all(std::initializer_list<std::optional<Observation>> reasons);
    static std::unexpected<Observations> refused(const ToolFile& file, std::string text);
    /// "nothing was written — <reason>", of that file.
    static std::unexpected<Observations> nothingWritten(const ToolFile& file,
                                                        std::string_view reason);

private:
    ReceiptStore m_receipts;
    mutable std::optional<ConnectorReceipt> m_receipt;
};

/// The one way in which every tool is scanned, connected and disconnected. A tool adds who it is,
/// how it is looked at, and where it keeps projects and memory files.
class ToolConnector : public Connector {
public:
    ConnectorIdentity identity() const final { return m_tool.identity; }
    std::vector<std::filesystem::path> files() const final { return m_tool.files; }
    ScanReport scan() const final;
    ConnectorOutcome install() const final;
    ConnectorOutcome remove() const final;
    bool staleOwnWiring() const final;

protected:
    ToolConnector(Tool tool, ConnectorVerb::Surroundings surroundings);

    virtual std::unique_ptr<ToolLook> look(ToolFile::Purpose purpose) const = 0;
    /// The identity with what there is to say of the tool as it is just now.
    virtual ConnectorIdentity shownIdentity() const { return m_tool.identity; }
    /// Why nothing is installed, whatever the files hold.
    virtual std::optional<Observation> standsInTheWay() const { return std::nullopt; }

    const ConnectorVerb::Surroundings& surroundings() const { return m_surroundings; }

private:
    Tool m_tool;
    ConnectorVerb::Surroundings m_surroundings;
};

} // namespace wendlow
