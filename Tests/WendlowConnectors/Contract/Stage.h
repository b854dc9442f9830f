#pragma once

#include "Connector.h"
#include "Files.h"
#include "TemporaryHome.h"
#include "ToolPaths.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// A home with one tool and an application in it, on which a scenario is played. A scenario is a
/// list of commands, each with what it says and what it changes below it:
///
///     put @hooks {}
///     install
///       changed
///       copied @hooks
///       @hooks: the Wendlow entry was written to this file
///       @hooks = {"hooks":...}
///
/// Whatever a verb changes anywhere in the home is told, so that what is not told has not changed.
/// Of each copy it is checked that it is the file as it was, and after each installation that a
/// second one changes nothing.
namespace wendlow::testing {

class Stage {
public:
    /// `tool` is a connector's id.
    explicit Stage(const std::string& tool);
    ~Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    /// The scenario as it came out: its commands, each followed by what became of it.
    std::string play(const std::string& scenario);

private:
    struct Thing {
        std::string text; ///< bytes, or what it is instead
        mode_t mode = 0;
        bool isFile = false;

        bool operator==(const Thing&) const = default;
    };
    using Tree = std::map<std::string, Thing>;

    void arrange(const std::string& command);
    void act(const std::string& verb);
    void tell(const Observations& observations);
    void tell(const Tree& before, const Tree& after);
    std::string shown(const std::string& name, const std::string& bytes);
    void checkCopy(const std::string& copy, const Tree& before) const;
    void goRound();
    void asNobody();
    std::string receiptText() const;
    Tree tree() const;
    std::string filled(std::string text) const;
    std::string marked(std::string text) const;
    void line(const std::string& text) { m_out += "  " + text + "\n"; }

    TemporaryHome m_home;
    Umask m_umask{0022};
    ToolPaths m_paths;
    std::unique_ptr<Connector> m_connector;
    std::vector<std::pair<std::string, std::string>> m_marks; ///< may hold those behind them
    std::function<void()> m_meanwhile; ///< done before the first rename of the next verb
    std::optional<uid_t> m_user;       ///< who this process was, where it became somebody else
    gid_t m_group = 0;                 ///< of whom it was then
    std::map<std::string, std::string> m_put; ///< what commands last wrote
    std::set<std::string> m_told;             ///< longer texts that need not be told again
    std::string m_out;
};

} // namespace wendlow::testing
